#pragma once

/// The library registers its translation contexts while it is loaded, and its icons and catalogues with Qt. A linker
/// takes a file of a static library only if something refers to it: a form does, by this. Does nothing otherwise.
void KeepLoadHooks();
