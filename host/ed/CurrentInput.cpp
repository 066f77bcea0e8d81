#include "InputSource.h"

ed::InputSource& ed::currentInput()
{
    static InputSource ofProgram;
    return ofProgram;
}
