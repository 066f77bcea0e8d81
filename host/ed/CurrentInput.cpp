#include "Documents.h"

ed::InputSource& ed::currentInput()
{
    static InputSource ofProgram;
    DocumentState* state = documents::current();
    return state ? state->input : ofProgram;
}
