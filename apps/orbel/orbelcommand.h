#pragma once

namespace Orbel
{

/// The whole command `orbel`, once in a process. Gives the exit status.
int RunOrbel(int argc, char **argv);

} // namespace Orbel
