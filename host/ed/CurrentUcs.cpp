#include "CurrentUcs.h"

#include "CurrentFrame.h"
#include "Documents.h"

AcGeMatrix3d ed::ucsToWorld()
{
    const DocumentState* document = documents::current();
    return document ? frames::current(*document->database) : AcGeMatrix3d::kIdentity;
}
