#pragma once

/// The size of pictures, from the first bytes of their files.

#include <atlstr.h>

struct PictureHeader {
    enum class Kind { unknown, png, jpeg, bmp, gif };
    Kind kind = Kind::unknown;
    int width = 0, height = 0; ///< in pixels
};

/// Of the contents of a file; unknown for what is no picture of these kinds or is damaged.
PictureHeader pictureHeaderOf(const unsigned char* bytes, std::size_t size);
/// Of a file: false when it cannot be read.
bool readPictureHeader(const CString& path, PictureHeader& header);
