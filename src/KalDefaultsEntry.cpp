// The library's only exported symbols: how the host creates and deletes the
// plug-in object.
#include "KalDefaults.h"

#define KAL_ENTRY_POINT extern "C" __attribute__((visibility("default")))

KAL_ENTRY_POINT KalPlugin* loadPlugin()
{
    return KalDefaults::create();
}

KAL_ENTRY_POINT void unloadPlugin()
{
    KalDefaults::destroy();
}
