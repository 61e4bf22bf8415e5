#pragma once

namespace Orbel
{

/// The line of a test. As the default argument of a function it is the line that calls the function, so that a failure
/// names the test and not the library.
struct CallSite {
    /// As compilers tell it.
    const char *File;
    /// Counts from 1.
    int Line;

    /// The line in which this is called, or in which a function is called that has it as a default argument.
    static constexpr CallSite Here(const char *file = __builtin_FILE(), int line = __builtin_LINE())
    {
        return {file, line};
    }
};

} // namespace Orbel
