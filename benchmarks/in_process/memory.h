// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Prints "resident", "private" and "heap" with what this process has now, in bytes.
void printMemory();
/// What the process has allocated on the heap, in bytes.
long long heapBytes();
