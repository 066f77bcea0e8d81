#pragma once

/// In MFC the extended controls, of which the host has none; what is left is the window interface.

#include "afxwin.h"
