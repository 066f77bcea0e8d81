#pragma once

#include "acadstrc.h"

#include <iterator>

/// The Chinese text of a status.
struct ErrorText {
    Acad::ErrorStatus status;
    const wchar_t* text;
};

/// Texts in the order of their statuses' numbers.
struct ErrorTexts {
    const ErrorText* first;
    const ErrorText* last;
};

// The whole table in three parts, each about the length that a reader can hold: statuses 0 to 173 speak of
// drawing objects, 180 to 609 of services (documents, layouts, plots, files), the others of signatures and
// the network.
extern const ErrorTexts errorTextsOfObjects;
extern const ErrorTexts errorTextsOfServices;
extern const ErrorTexts errorTextsOfNetwork;
