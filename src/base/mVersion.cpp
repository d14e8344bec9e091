// The version that the build was configured with.
#include "base/mVersion.h"

const char* Version()
{
    return SKARVELIN_VERSION;
}
