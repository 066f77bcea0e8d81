#pragma once

/// The layouts of a drawing as tabs: which is the current one, making, copying, renaming and deleting them.

#include "acdb.h"
#include "dbid.h"
#include "dbobject.h"
#include "rxboiler.h"

#include <cstdint>
#include <vector>

class AcDbDatabase;
class AcDbLayout;

/// Told of what becomes of layouts, whoever's drawing they are in. An `abort...` follows its `...ToBe...`
/// when that failed.
class AcDbLayoutManagerReactor : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbLayoutManagerReactor);
    virtual void layoutCreated(const ACHAR*, const AcDbObjectId&) {}
    virtual void layoutToBeRemoved(const ACHAR*, const AcDbObjectId&) {}
    virtual void layoutRemoved(const ACHAR*, const AcDbObjectId&) {}
    virtual void abortLayoutRemoved(const ACHAR*, const AcDbObjectId&) {}
    virtual void layoutToBeCopied(const ACHAR*, const AcDbObjectId&) {}
    virtual void layoutCopied(const ACHAR*, const AcDbObjectId&, const ACHAR*, const AcDbObjectId&) {}
    virtual void abortLayoutCopied(const ACHAR*, const AcDbObjectId&) {}
    virtual void layoutToBeRenamed(const ACHAR*, const ACHAR*, const AcDbObjectId&) {}
    virtual void layoutRenamed(const ACHAR*, const ACHAR*, const AcDbObjectId&) {}
    virtual void abortLayoutRename(const ACHAR*, const ACHAR*, const AcDbObjectId&) {}
    virtual void layoutSwitched(const ACHAR*, const AcDbObjectId&) {}
};

/// The current layout follows from the drawing: the model's while TILEMODE is 1, otherwise the one whose
/// block is named
/// "*Paper_Space". Making a layout current gives its block that name, and the block that had it another.
///
/// Where a database may be null, the working one is meant: eNoDatabase when there is none. Names are found
/// without regard to case: eKeyNotFound for an unknown one, eInvalidInput for an empty one. What is open when
/// it must be changed gives the status of acdbOpenObject, and nothing is changed then.
class AcDbLayoutManager : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbLayoutManager);

    /// Shows a layout; its sheet viewport is made when it is shown for the first time.
    virtual Acad::ErrorStatus setCurrentLayout(const ACHAR* name, AcDbDatabase* database = nullptr);
    /// eWrongObjectType for an id that is no layout's, eNotInDatabase for one without a block.
    virtual Acad::ErrorStatus setCurrentLayoutId(AcDbObjectId id);
    /// The name of the current layout; without `allowModel` the last one on paper while the model is current.
    /// Null when there is none; the text is the layout's.
    virtual const ACHAR* findActiveLayout(bool allowModel, const AcDbDatabase* database = nullptr) const;
    /// The block of the current layout.
    virtual AcDbObjectId getActiveLayoutBTRId(const AcDbDatabase* database = nullptr) const;
    /// A layout that the caller closes; null when there is none of the name or it cannot be opened.
    virtual AcDbLayout* findLayoutNamed(const ACHAR* name, AcDb::OpenMode mode = AcDb::kForRead,
                                        const AcDbDatabase* database = nullptr) const;
    virtual bool layoutExists(const ACHAR* name, const AcDbDatabase* database = nullptr) const;
    /// How many layouts there are, the model's too; 0 without a database.
    virtual int countLayouts(AcDbDatabase* database = nullptr) const;

    /// Adds an empty layout behind the others, without making it current. eDuplicateKey for a name that is
    /// taken, eInvalidInput for one that no layout may have (as of symbols, <>/\":;?*|,=` are refused).
    virtual Acad::ErrorStatus createLayout(const ACHAR* name, AcDbObjectId& layoutId, AcDbObjectId& blockId,
                                           AcDbDatabase* database = nullptr);
    /// Erases a layout with its block. eDelIsModelSpace for the model's. When it was the last on paper an
    /// empty one is made; when it was current its neighbour becomes so.
    virtual Acad::ErrorStatus deleteLayout(const ACHAR* name, AcDbDatabase* database = nullptr);
    /// The statuses of AcDbLayout::setLayoutName.
    virtual Acad::ErrorStatus renameLayout(const ACHAR* oldName, const ACHAR* newName,
                                           AcDbDatabase* database = nullptr);
    /// Copies a layout with what is drawn on it, to stand behind the others. eCopyIsModelSpace for the
    /// model's; the statuses of createLayout.
    virtual Acad::ErrorStatus copyLayout(const ACHAR* name, const ACHAR* newName,
                                         AcDbDatabase* database = nullptr);
    /// The same of an open layout, to stand at a place; those behind it move on. The place counts from 1.
    virtual Acad::ErrorStatus cloneLayout(AcDbLayout* layout, const ACHAR* newName, int newTabOrder,
                                          AcDbObjectId& newLayoutId, AcDbObjectId& newBlockId,
                                          AcDbDatabase* database = nullptr);

    /// Makes a database the working one until `clearSetupForLayouts` is given the context. eNullPtr for a
    /// null one.
    virtual Acad::ErrorStatus setupForLayouts(AcDbDatabase* database, std::uintptr_t& context);
    /// eInvalidContext for a context that is not of the last set-up.
    virtual Acad::ErrorStatus clearSetupForLayouts(std::uintptr_t context);

    virtual void addReactor(AcDbLayoutManagerReactor* reactor);
    virtual void removeReactor(AcDbLayoutManagerReactor* reactor);

private:
    friend struct LayoutManagement;
    std::vector<AcDbLayoutManagerReactor*> mReactors;
    std::vector<AcDbDatabase*> mSetUps; ///< the databases that were the working ones
};
