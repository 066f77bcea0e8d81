#pragma once

namespace ed
{
/// QUIT: the command line takes nothing more.
void requestEnd();
bool endIsRequested();
/// Another session begins.
void forgetEnd();
} // namespace ed
