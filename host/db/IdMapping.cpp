#include "CopySession.h"

AcDbIdMapping::AcDbIdMapping() = default;
AcDbIdMapping::~AcDbIdMapping() = default;

bool AcDbIdMapping::assign(const AcDbIdPair& pair)
{
    if (pair.key().isNull()) return false;
    const auto [at, isNew] = mPlaces.emplace(pair.key(), mPairs.size());
    if (isNew) {
        mPairs.push_back(pair);
    } else {
        mPairs[at->second] = pair;
    }
    return true;
}

bool AcDbIdMapping::compute(AcDbIdPair& pair) const
{
    const auto at = mPlaces.find(pair.key());
    if (at == mPlaces.end()) return false;
    pair = mPairs[at->second];
    return true;
}

bool AcDbIdMapping::del(const AcDbObjectId& key)
{
    const auto at = mPlaces.find(key);
    if (at == mPlaces.end()) return false;
    mPairs[at->second] = AcDbIdPair();
    mPlaces.erase(at);
    return true;
}

Acad::ErrorStatus AcDbIdMapping::destDb(AcDbDatabase*& database) const
{
    database = mDestination;
    return database ? Acad::eOk : Acad::eNoDatabase;
}

Acad::ErrorStatus AcDbIdMapping::setDestDb(AcDbDatabase* database)
{
    mDestination = database;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbIdMapping::origDb(AcDbDatabase*& database) const
{
    database = mOrigin;
    return database ? Acad::eOk : Acad::eNoDatabase;
}

void AcDbIdMappingIter::start()
{
    mAt = 0;
    skipRemoved();
}

void AcDbIdMappingIter::next()
{
    ++mAt;
    skipRemoved();
}

bool AcDbIdMappingIter::getMap(AcDbIdPair& pair) const
{
    if (done()) return false;
    pair = mMapping.mPairs[mAt];
    return true;
}

void AcDbIdMappingIter::skipRemoved()
{
    while (!done() && mMapping.mPairs[mAt].key().isNull())
        ++mAt;
}
