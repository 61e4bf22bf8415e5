#include "orbelcommand.h"

int main(int argc, char **argv)
{
    return RunOrbel(argc, argv);
}
