#pragma once

/// Changes of every kind to a drawing, drawn at random.

#include "../db/FiledClasses.h"
#include "EditorFixture.h"

#include <random>

/// Makes changes to the drawing, each as a command or as typed keys.
class RandomChanges : public headless::EditorTest
{
protected:
    void begin(std::uint32_t seed) { mRandom.seed(seed); }
    /// One change; its name.
    const char* change();

    struct Change {
        const char* name;
        void (RandomChanges::*make)();
    };

private:
    static const std::vector<Change>& all();

    int number(int most) { return std::uniform_int_distribution<int>(0, most)(mRandom); }
    double coordinate() { return number(1000) / 8.0; }
    AcGePoint3d place() { return {coordinate(), coordinate(), 0.0}; }
    AcDbDatabase& drawing() const { return *database(); }
    CString name(const wchar_t* stem);
    AcDbObjectId add(AcDbEntity* entity, AcDbObjectId block = AcDbObjectId());
    std::vector<AcDbObjectId> living(const AcRxClass* ofClass) const;
    /// One of them; null when there is none.
    AcDbObjectId some(const AcRxClass* ofClass);
    void typeKeys(const CString& keys) { run(keys.GetString()); }

    void typeLine();
    void typeVariable();
    void typeZoom();
    void setUcs();
    void addCurve();
    void moveEntity();
    void paintEntity();
    void eraseAndBringBack();
    void modifyByList();
    void attachData();
    void addVertices();
    void addLayer();
    void changeLayer();
    void changeDictionary();
    void insertBlock();
    void changeGroup();
    void changeLayout();
    void hatchCircle();
    void dimension();
    void reorder();
    void extend();
    void copyEntities();
    void transact();
    void cancelChange();

    // RandomObjects.cpp
    AcDbDatabase& side();
    void insertByCall();
    void typeInsert();
    void insertFile();
    void typeWblock();
    void mergeDrawings();
    void insertInPieces();
    void changeImage();
    void placeWipeout();
    void changeValve();

    FiledClasses mClasses;
    std::mt19937 mRandom;
    int mNames = 0;
    std::unique_ptr<AcDbDatabase> mSide;
};
