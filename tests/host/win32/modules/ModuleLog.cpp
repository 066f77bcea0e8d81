#include "ModuleLog.h"

std::vector<std::string>& moduleLog()
{
    static std::vector<std::string> log;
    return log;
}
