#pragma once

/// Conversion between narrow text in a code page and wide text.
///
/// A wide character is the platform's own. Where it has 32 bits a supplementary character is one of
/// them, and a surrogate pair in wide text is read as one character by the conversion to UTF-8.

#include "windef.h"

#define MB_PRECOMPOSED 0x00000001
#define MB_ERR_INVALID_CHARS 0x00000008

#define WC_ERR_INVALID_CHARS 0x00000080
#define WC_NO_BEST_FIT_CHARS 0x00000400

/// Converts `length` bytes of `text` to wide characters; a negative length is a text that ends with a NUL,
/// which is converted too. `capacity` counts the characters of `to`; 0 measures and writes nothing.
///
/// Returns the number of characters written or needed, 0 on failure. What the page cannot decode becomes
/// '?', in UTF-8 one U+FFFD for each maximal ill-formed part. A lead byte takes the next byte only when
/// that can be a trail byte.
///
/// Flags: MB_ERR_INVALID_CHARS makes undecodable text an error; MB_PRECOMPOSED (not with 65001) is what
/// happens anyway.
/// Errors: ERROR_INVALID_PARAMETER (unknown page, null text, length 0, negative capacity, capacity without
/// a buffer, buffer and text the same), ERROR_INVALID_FLAGS, ERROR_NO_UNICODE_TRANSLATION,
/// ERROR_INSUFFICIENT_BUFFER (`to` holds the characters that fit; nothing beyond it is touched).
int WINAPI MultiByteToWideChar(UINT codePage, DWORD flags, LPCCH text, int length, LPWSTR to, int capacity);

/// Converts `length` wide characters to bytes of a code page, with lengths, capacity and result as above.
///
/// A character that the page has not is replaced by a similar one where the page's best-fit table names
/// one (not with WC_NO_BEST_FIT_CHARS), else by `defaultChar`, or '?' when that is null; a supplementary
/// character is replaced by two, one for each of its UTF-16 units. `*usedDefault` tells whether that
/// happened. Lone surrogates are U+FFFD in UTF-8.
///
/// Flags: WC_NO_BEST_FIT_CHARS (not with 65001), WC_ERR_INVALID_CHARS (65001 only: a lone surrogate fails
/// with ERROR_NO_UNICODE_TRANSLATION).
/// Errors: as above, and ERROR_INVALID_PARAMETER when `defaultChar` or `usedDefault` is given with 65001.
int WINAPI WideCharToMultiByte(UINT codePage, DWORD flags, LPCWCH text, int length, LPSTR to, int capacity,
                               LPCCH defaultChar, LPBOOL usedDefault);
