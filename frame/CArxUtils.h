#pragma once

/// The newer services, by what they serve: each nested class is declared in a header of its own name.
class CArxUtils
{
public:
    CArxUtils() = delete;

    class CDatabase;
    class CDebugError;
    class CDocView;
    class CMessage;
    class CPtArrList;
    class CSysVar;
    class CUcsWcs;
};
