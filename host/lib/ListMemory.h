#pragma once

#include <cstddef>

class SoField;
class SoMField;

// The values of a list field as the memory Coin keeps them in. Only lists of
// plain values qualify (numbers, vectors, matrices, names, ...): a string or
// node list holds objects that must not be compared or moved as bytes.
namespace ListMemory {

bool isPlain(const SoField* field);
int valueSize(SoMField* field);
char* values(SoMField* field);
// The first byte at which two blocks differ, or `size` when they do not.
std::size_t firstDifference(const char* a, const char* b, std::size_t size);
// How many bytes two blocks share at their ends.
std::size_t commonTail(const char* a, const char* b, std::size_t size);

} // namespace ListMemory
