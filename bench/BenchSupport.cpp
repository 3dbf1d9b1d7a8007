#include "BenchSupport.h"

#include "EventLoopPass.h"

#include <EditorDockFixture.h>
#include <FieldTesting.h>
#include <KalServices.h>

#include <QDockWidget>
#include <QPixmapCache>

#include <fstream>
#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

QDockWidget* loadPluginIntoShownWindow()
{
    return EditorDockFixture::loadPlugin(QSize(900, 600)) ? EditorDockFixture::dock() : nullptr;
}

void selectField(SoField* field)
{
    emit KalServices::getInstance()->selectedFieldChanged(field);
    eventLoopPass();
}

void selectFieldWithSensors(SoField* field)
{
    emit KalServices::getInstance()->selectedFieldChanged(field);
    processSensors();
    eventLoopPass();
}

bool steadyAllocator()
{
    mallopt(M_MMAP_THRESHOLD, 32 * 1024 * 1024);
    mallopt(M_TRIM_THRESHOLD, 64 * 1024 * 1024);
    return true;
}

double heapBytesInUse()
{
    return double(mallinfo2().uordblks);
}

double trimmedHeapBytes()
{
    QPixmapCache::clear();
    malloc_trim(0);
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd);
}

double residentKib()
{
    long size = 0;
    long residentPages = 0;
    std::ifstream("/proc/self/statm") >> size >> residentPages;
    return double(residentPages) * double(sysconf(_SC_PAGESIZE)) / 1024.0;
}

double minorPageFaults()
{
    struct rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_minflt);
}
