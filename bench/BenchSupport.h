#pragma once
// What the benchmark programs share: the plug-in loaded into a shown window,
// nodes kept for the whole program, a selection carried through as the host
// carries it, and the readings of the heap and of page faults.
#include <chrono>

class QDockWidget;
class SoField;

// The plug-in loaded into the host once per benchmark program, its main
// window shown at one size, so that every selection figure pays for the same
// layout. Returns the "Field Editor" dock, or null if the plug-in did not
// load.
QDockWidget* loadPluginIntoShownWindow();

// A node that stays alive for the whole program.
template <class Node>
Node* keptNode()
{
    auto* node = new Node;
    node->ref();
    return node;
}

// The wall time of `action`, in seconds, for a benchmark that times its
// steps itself (UseManualTime): what sets up the next step stays out.
template <class Action>
double secondsOf(Action action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// `field` announced as the selection, then one event-loop pass: the dock
// shows its editor filled.
void selectField(SoField* field);
// The same with the field sensors due run before the pass, as the host's
// event loop would run them.
void selectFieldWithSensors(SoField* field);

// glibc serves blocks above a threshold straight from the system and raises
// the threshold each time it gives such a block back, up to 32 MB (and keeps
// up to 64 MB of freed heap); a thread's own heap is given back whole once
// nothing in it is in use. A host that has shown one long list or closed
// one large scene has reached that state. Fixed at it from the start, no
// figure depends on which benchmark ran before it. Returns true, so that a
// program can call it from a static initialiser.
bool steadyAllocator();

// Heap bytes in use, from the allocator itself: unlike the resident size it
// is not hidden by memory an earlier repetition freed and this one reuses.
// glibc's per-thread cache keeps up to seven freed blocks of each small size
// for reuse, and counts them as in use: a reading moves by a KiB or two with
// whichever sizes were freed last. Run with
// GLIBC_TUNABLES=glibc.malloc.tcache_count=0 to read the live heap alone.
double heapBytesInUse();
// The heap in use with the large blocks (a million rows' bookkeeping) that
// are mapped apart from the heap proper, read with Qt's pixmap cache emptied
// (it keeps icon renderings up to its own 10 MB bound, and the colour
// swatches make new ones) and with the freed top of the heap given back, so
// that the resident size follows what is in use.
double trimmedHeapBytes();
// The resident size, in KiB.
double residentKib();
// Minor page faults of the process so far: pages faulted in and zeroed.
double minorPageFaults();
