#pragma once

/// Registers the hooks through which the module sees the messages of AutoCAD's loop, the watch hook first.
/// The watch hook keeps in g_CGloableVar whether the mouse is in the drawing view and where its left button
/// was used last; the filter hook serves the keyword shortcut (CNoSpacebarInputControls) and the pending
/// Enter of g_CGloableVar, and swallows no message. The main thread calls them.
void registerMessageHooks();
