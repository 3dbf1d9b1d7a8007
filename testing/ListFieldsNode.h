#pragma once
// The list fields are now fields of the node with a field of every type.
// This name stays only while the benchmarks and the fuzz target still use
// it; tests use AllFieldsNode.
#include "AllFieldsNode.h"

using ListFieldsNode = AllFieldsNode;
