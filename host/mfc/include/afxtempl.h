#pragma once

/// The collection templates of MFC.
///
/// An element type needs a default constructor and assignment. Elements are moved when they have to change
/// place, and copied when they cannot be moved. An index outside the collection, a negative count or a
/// null POSITION throws CInvalidArgException and changes nothing.

#include "afx.h"

#include "afxarray.h"
#include "afxlist.h"
#include "afxmap.h"
