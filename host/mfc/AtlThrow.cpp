#include "atlexcept.h"

void AtlThrow(HRESULT hr)
{
    throw CAtlException(hr);
}
