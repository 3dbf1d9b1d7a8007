#include "LargeStack.h"

#include <Inventor/misc/SoBase.h>

#include <QThread>

#include <atomic>
#include <memory>
#include <new>

namespace {

// An exception that leaves a thread's function ends the program; Coin
// throws std::bad_alloc when a file declares more than can be had.
bool runCaught(const std::function<void()>& work)
{
    try {
        work();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace

bool LargeStack::run(const std::function<void()>& work)
{
    // What the reading thread made (a scene, its report, the memory it freed)
    // is the caller's once the thread has ended. QThread::wait() orders that,
    // but through Qt's own futex locks, which the thread sanitizer cannot see;
    // the outcome, stored last with release and loaded with acquire, hands it
    // all over in a way any tool can follow.
    enum Outcome
    {
        NotRun,
        Completed,
        OutOfMemory
    };
    std::atomic<int> outcome{NotRun};
    std::unique_ptr<QThread> thread(QThread::create([&work, &outcome] {
        outcome.store(runCaught(work) ? Completed : OutOfMemory, std::memory_order_release);
    }));
    thread->setStackSize(kStackBytes);
    thread->start();
    thread->wait();
    switch (outcome.load(std::memory_order_acquire)) {
    case Completed:
        return true;
    case OutOfMemory:
        return false;
    default:
        return runCaught(work);
    }
}

void LargeStack::unref(SoBase* object)
{
    if (!object)
        return;
    if (object->getRefCount() > 1)
        object->unref();
    else
        run([object] { object->unref(); });
}
