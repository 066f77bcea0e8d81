// The extents of a drawing's labels, beside those that cairo's scaled fonts give for the same face.

#include "TextMetrics.h"

#include <benchmark/benchmark.h>
#include <cairo.h>

#include <string>

namespace
{
constexpr int labelCount = 10000;

std::vector<std::wstring> wideLabels()
{
    std::vector<std::wstring> labels;
    for (int i = 0; i < labelCount; ++i)
        labels.push_back(L"房间编号 A-" + std::to_wstring(i) + L" 面积 25.4m");
    return labels;
}

std::vector<std::string> narrowLabels()
{
    std::vector<std::string> labels;
    for (int i = 0; i < labelCount; ++i)
        labels.push_back("房间编号 A-" + std::to_string(i) + " 面积 25.4m");
    return labels;
}

void oursLabels(benchmark::State& state)
{
    const std::vector<std::wstring> labels = wideLabels();
    const lettering::Font& font = lettering::fontNamed({L"WenQuanYi Micro Hei", {}});
    for (auto _ : state)
        for (const std::wstring& label : labels)
            benchmark::DoNotOptimize(lettering::measureText(font, {}, lettering::decodeTextCodes(label)));
    state.SetItemsProcessed(state.iterations() * labelCount);
    state.counters["goal"] = 1;
}

void cairoLabels(benchmark::State& state)
{
    const std::vector<std::string> labels = narrowLabels();
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1);
    cairo_t* context = cairo_create(surface);
    cairo_select_font_face(context, "WenQuanYi Micro Hei", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context, 1000);
    cairo_scaled_font_t* font = cairo_get_scaled_font(context);
    for (auto _ : state)
        for (const std::string& label : labels) {
            cairo_text_extents_t extents;
            cairo_scaled_font_text_extents(font, label.c_str(), &extents);
            benchmark::DoNotOptimize(extents);
        }
    state.SetItemsProcessed(state.iterations() * labelCount);
    cairo_destroy(context);
    cairo_surface_destroy(surface);
}
} // namespace

BENCHMARK(oursLabels)->Name("LabelExtents/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(cairoLabels)->Name("LabelExtents/cairo")->Unit(benchmark::kMillisecond);
