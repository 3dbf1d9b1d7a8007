#include "LargeStack.h"

#include <Inventor/misc/SoBase.h>

#include <QThread>

#include <memory>

void LargeStack::run(const std::function<void()>& work)
{
    bool ran = false;
    std::unique_ptr<QThread> thread(QThread::create([&work, &ran] {
        ran = true;
        work();
    }));
    thread->setStackSize(kStackBytes);
    thread->start();
    thread->wait();
    if (!ran)
        work();
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
