#pragma once

#include "CGTStringW.h"

/// Text inside XML documents.
class CXMLUtil
{
public:
    /// The text fit for an element or a quoted attribute: & < > " ' become references; control characters
    /// that XML 1.0 cannot hold are left out.
    static CGTStringW Escape(const CGTStringW& text);
    /// Puts characters in the place of the five named references and of numeric ones (&#65; &#x41;). What is
    /// no reference, or names no character, stays as it stands.
    static CGTStringW Unescape(const CGTStringW& text);
};
