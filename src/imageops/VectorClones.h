// Row functions that exist twice: for every processor, and for those with wide vectors.
#pragma once

/// Before a plain function over arrays: the compiler also makes a version for 256-bit vectors, and the start
/// of the program picks one. Both give the same bits.
#if defined(__x86_64__) && defined(__gnu_linux__)
#define PINTALUX_VECTOR_CLONES __attribute__((target_clones("avx2", "default")))
#else
#define PINTALUX_VECTOR_CLONES
#endif
