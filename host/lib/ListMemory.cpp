#include "ListMemory.h"

#include <Inventor/fields/SoMFEngine.h>
#include <Inventor/fields/SoMFNode.h>
#include <Inventor/fields/SoMFPath.h>
#include <Inventor/fields/SoMFString.h>

#include <cstring>

namespace {
constexpr std::size_t kBlock = 4096;

// Coin keeps a list's size and memory behind protected members; naming them
// through a class derived from SoMField is the one way C++ offers to reach
// them on any list. The class is never made.
struct ListAccess : SoMField
{
    static int valueSize(SoMField* field) { return (field->*(&ListAccess::fieldSizeof))(); }
    static void* values(SoMField* field) { return (field->*(&ListAccess::valuesPtr))(); }
};
} // namespace

namespace ListMemory {

bool isPlain(const SoField* field)
{
    if (!field || !field->isOfType(SoMField::getClassTypeId()))
        return false;
    return !field->isOfType(SoMFString::getClassTypeId()) && !field->isOfType(SoMFNode::getClassTypeId()) &&
           !field->isOfType(SoMFPath::getClassTypeId()) && !field->isOfType(SoMFEngine::getClassTypeId());
}

int valueSize(SoMField* field)
{
    return ListAccess::valueSize(field);
}

char* values(SoMField* field)
{
    return static_cast<char*>(ListAccess::values(field));
}

std::size_t firstDifference(const char* a, const char* b, std::size_t size)
{
    // Whole blocks through memcmp, which is many times faster than a loop.
    std::size_t at = 0;
    while (at + kBlock <= size && std::memcmp(a + at, b + at, kBlock) == 0)
        at += kBlock;
    while (at < size && a[at] == b[at])
        ++at;
    return at;
}

std::size_t commonTail(const char* a, const char* b, std::size_t size)
{
    std::size_t tail = 0;
    while (tail + kBlock <= size &&
           std::memcmp(a + size - tail - kBlock, b + size - tail - kBlock, kBlock) == 0)
        tail += kBlock;
    while (tail < size && a[size - tail - 1] == b[size - tail - 1])
        ++tail;
    return tail;
}

} // namespace ListMemory
