#pragma once

/// Data of a module's own for each document.

#include "acdocman.h"

#include <map>

/// Keeps one T for each document; a document's T goes with the document.
template <class T>
class AcApDataManager : public AcApDocManagerReactor
{
public:
    AcApDataManager() { acDocManager->addReactor(this); }
    ~AcApDataManager() override { acDocManager->removeReactor(this); }
    AcApDataManager(const AcApDataManager&) = delete;
    AcApDataManager& operator=(const AcApDataManager&) = delete;

    void documentToBeDestroyed(AcApDocument* document) override { mData.erase(document); }

    /// The data of a document (null: of the current one), made when it is asked for first.
    T& docData(AcApDocument* document = nullptr) { return mData[document ? document : curDoc()]; }

private:
    std::map<AcApDocument*, T> mData;
};
