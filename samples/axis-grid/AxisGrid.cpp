#include "AxisGrid.h"

#include "QmCADLib.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace
{
constexpr wchar_t letters[] = L"ABCDEFGHJKLMNPQRSTUVWXY";
constexpr int letterCount = static_cast<int>(std::size(letters)) - 1;
constexpr std::size_t mostSpacings = 200;
constexpr double widestSpacing = 1e9;

/// "6000" or "3*6000"; appends the distances.
bool readItem(const CString& item, std::vector<double>& spacings)
{
    const int asterisk = item.Find(L'*');
    const CString count = asterisk < 0 ? CString(L"1") : item.Left(asterisk), number = item.Mid(asterisk + 1);
    double whole = 0.0;
    if (!CFamStuStr::IsDigitFactor(whole, number)) return false;
    if (count.IsEmpty() || count.SpanIncluding(L"0123456789") != count) return false;
    const double distance = _wtof(number);
    const int repeats = _wtoi(count);
    if (!(distance > 0.0 && distance <= widestSpacing)) return false;
    if (repeats < 1 || repeats > static_cast<int>(mostSpacings)) return false;
    spacings.insert(spacings.end(), static_cast<std::size_t>(repeats), distance);
    return spacings.size() <= mostSpacings;
}

/// Neighbours whose bubbles stand side by side. The row is moved as a whole, and so each bubble counts by the
/// place that the first of all would have.
struct BubbleRun {
    double sum = 0.0;
    std::size_t count = 0;

    double mean() const { return sum / static_cast<double>(count); }
};

/// Bubbles that would overlap become one run, which stands where it moves least: isotonic regression by
/// pooling adjacent violators (Ayer et al., Annals of Mathematical Statistics 26, 1955).
std::vector<BubbleRun> poolBubbles(const std::vector<double>& axes, double diameter)
{
    std::vector<BubbleRun> runs;
    for (std::size_t i = 0; i < axes.size(); ++i) {
        BubbleRun run{axes[i] - static_cast<double>(i) * diameter, 1};
        for (; !runs.empty() && runs.back().mean() > run.mean(); runs.pop_back()) {
            run.sum += runs.back().sum;
            run.count += runs.back().count;
        }
        runs.push_back(run);
    }
    return runs;
}
} // namespace

double AxisGrid::width() const
{
    return std::accumulate(columns.begin(), columns.end(), 0.0);
}

double AxisGrid::depth() const
{
    return std::accumulate(rows.begin(), rows.end(), 0.0);
}

bool readSpacings(const CString& text, std::vector<double>& spacings)
{
    CString line = text;
    line.Replace(L',', L' ');
    std::vector<double> read;
    int at = 0;
    for (CString item = line.Tokenize(L" ", at); at >= 0; item = line.Tokenize(L" ", at)) {
        if (!readItem(item, read)) return false;
    }
    if (read.empty()) return false;
    spacings = read;
    return true;
}

CString spacingsText(const std::vector<double>& spacings)
{
    CString text;
    for (std::size_t i = 0; i < spacings.size();) {
        std::size_t end = i;
        while (end < spacings.size() && spacings[end] == spacings[i])
            ++end;
        if (end - i > 1) text.AppendFormat(L"%d*", static_cast<int>(end - i));
        text += CFamStuStr::FormatDouble(spacings[i]) + L" ";
        i = end;
    }
    return text.TrimRight();
}

std::vector<double> axisPlaces(const std::vector<double>& spacings)
{
    std::vector<double> places(1, 0.0);
    for (const double spacing : spacings)
        places.push_back(places.back() + spacing);
    return places;
}

Bay widestBay(const std::vector<double>& spacings)
{
    const std::vector<double> places = axisPlaces(spacings);
    const auto offCentre = [&](const Bay& bay) { return std::abs(bay.middle() - places.back() / 2.0); };
    Bay widest;
    for (std::size_t i = 0; i < spacings.size(); ++i) {
        const Bay bay{places[i], spacings[i]};
        const bool isNearer = bay.width == widest.width && offCentre(bay) < offCentre(widest);
        if (bay.width > widest.width || isNearer) widest = bay;
    }
    return widest;
}

std::vector<double> bubblePlaces(const std::vector<double>& axes, double diameter)
{
    std::vector<double> places;
    for (const BubbleRun& run : poolBubbles(axes, diameter)) {
        const double first = std::max(run.mean(), 0.0);
        const bool isAtItsAxis = run.count == 1 && run.mean() >= 0.0;
        for (std::size_t k = 0; k < run.count; ++k) {
            const std::size_t i = places.size();
            places.push_back(isAtItsAxis ? axes[i] : first + static_cast<double>(i) * diameter);
        }
    }
    return places;
}

CString axisLetter(int index)
{
    CString text(letters[index % letterCount]);
    if (index >= letterCount) text.AppendFormat(L"%d", index / letterCount);
    return text;
}

int axisLetterIndex(const CString& letter)
{
    if (letter.GetLength() != 1) return -1;
    return CString(letters).Find(letter.GetAt(0) >= L'a' ? letter.GetAt(0) - L'a' + L'A' : letter.GetAt(0));
}
