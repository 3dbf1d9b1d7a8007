#pragma once

#include <functional>

class SoBase;

// Runs work that recurses once per level of the scene graph (reading,
// writing, releasing a scene) on a thread with a stack large enough for
// scenes nested tens of thousands of levels deep, and waits for it. Coin's
// readers, actions and destructors recurse on the caller's stack, and the
// GUI thread's 8 MiB gave out reading 20,000 levels (10,000 were fine).
class LargeStack
{
public:
    // What each run gets: room for well over 100,000 levels.
    static constexpr unsigned kStackBytes = 512u * 1024u * 1024u;

    // Returns once work has run. Should the thread not start (the stack
    // cannot be had), work runs on the calling thread instead. False when
    // work ran out of memory (threw std::bad_alloc).
    static bool run(const std::function<void()>& work);

    // Drops a reference; when it is the last one, the object is destroyed
    // here, since a scene frees its children recursively.
    static void unref(SoBase* object);
};
