#include "cstringt.h"

#include "CStringBuffer.inl"
#include "CStringCollate.inl"
#include "CStringConvert.inl"
#include "CStringEdit.inl"
#include "CStringFormat.inl"
#include "CStringSearch.inl"
#include "CStringTrim.inl"

CNilString atlNilString = {{CStringData::immortal, 0, 0}, 0};

template class CStringT<wchar_t>;
template class CStringT<char>;
