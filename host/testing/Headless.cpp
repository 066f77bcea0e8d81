#include "Headless.h"

#include "AnsiCodePage.h"

namespace headless
{
void setAnsiCodePage(UINT codePage) { win32::setAnsiCodePage(codePage); }
} // namespace headless
