#pragma once

/// The entity engine, by what it does with entities: each nested class is declared in a header of its own
/// name.
class CArxEntity
{
public:
    CArxEntity() = delete;

    class CCheck;
    class CConvert;
    class CMakeEnt;
    class COperate;
    class CParamCalc;
    class CRelate;
};
