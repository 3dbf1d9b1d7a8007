#include "LargeStack.h"

#include <Inventor/misc/SoBase.h>

#include <QThread>

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
    bool ran = false;
    bool completed = false;
    std::unique_ptr<QThread> thread(QThread::create([&work, &ran, &completed] {
        ran = true;
        completed = runCaught(work);
    }));
    thread->setStackSize(kStackBytes);
    thread->start();
    thread->wait();
    if (!ran)
        completed = runCaught(work);
    return completed;
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
