#pragma once

/// A folder for plots, and the pixels of a picture in it.

// Before <windows.h>, whose names <filesystem> would have its own paths of.
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "CairoCanvas.h"

#include <gtest/gtest.h>

constexpr colors::Rgb red{255, 0, 0}, blue{0, 0, 255}, green{0, 255, 0}, white{255, 255, 255}, black{0, 0, 0};

/// A page of 100 by 100 pixels whose window is 0 ... 100 in both directions.
inline plot::Page hundred()
{
    plot::Page page;
    page.width = page.height = 25.4;
    page.dotsPerInch = 100;
    page.windowMax.set(100, 100);
    return page;
}

class PictureFixture : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string name = (std::filesystem::temp_directory_path() / "plot-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder = name;
    }
    void TearDown() override
    {
        if (picture) cairo_surface_destroy(picture);
        std::filesystem::remove_all(folder);
    }

    plot::CairoCanvas canvas(const char* name, plot::PlotFormat format)
    {
        target = folder / name;
        return {target.wstring(), format};
    }
    void readPicture()
    {
        if (picture) cairo_surface_destroy(picture);
        picture = cairo_image_surface_create_from_png(target.c_str());
    }
    /// Draws on a page of 100 by 100 and reads the picture.
    template <class Draw>
    void plotHundred(const Draw& draw)
    {
        plot::CairoCanvas png = canvas("plot.png", plot::PlotFormat::png);
        ASSERT_EQ(png.begin(hundred()), plot::PlotStatus::done);
        draw(png);
        ASSERT_EQ(png.finish(), plot::PlotStatus::done);
        readPicture();
        ASSERT_EQ(cairo_image_surface_get_width(picture), 100);
    }
    int height() const { return cairo_image_surface_get_height(picture); }
    int width() const { return cairo_image_surface_get_width(picture); }
    /// The pixel around a place, counted from the lower left.
    colors::Rgb at(int x, int y) const
    {
        const unsigned char* row = cairo_image_surface_get_data(picture) +
                                   (height() - 1 - y) * cairo_image_surface_get_stride(picture) + 4 * x;
        return {row[2], row[1], row[0]};
    }
    /// How many pixels are not white.
    int inked() const
    {
        int count = 0;
        for (int y = 0; y < height(); ++y)
            for (int x = 0; x < width(); ++x)
                if (at(x, y) != white) ++count;
        return count;
    }
    std::string contents() const
    {
        std::ifstream file(target, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool isFolderEmpty() const { return std::filesystem::is_empty(folder); }

    std::filesystem::path folder, target;
    cairo_surface_t* picture = nullptr;
};
