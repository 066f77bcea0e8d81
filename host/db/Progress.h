#pragma once

#include <cstddef>

class AcDbHostApplicationProgressMeter;

/// Long work tells the working progress meter how far it is, if there is one.
class Progress
{
public:
    explicit Progress(const wchar_t* what);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// `done` of `total` is done; less than before changes nothing.
    void reach(std::size_t done, std::size_t total)
    {
        if (mMeter && total > 0) show(done, total);
    }

private:
    void show(std::size_t done, std::size_t total);

    AcDbHostApplicationProgressMeter* mMeter;
    std::size_t mShown = 0; ///< in hundredths
};
