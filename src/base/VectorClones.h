// Row functions that exist three times: for every processor, and for those with wide vectors.
#pragma once

/// Before a plain function over arrays of whole numbers: the compiler also makes versions for vectors of 256
/// and of 512 bits, and the start of the program picks one. All give the same bits.
#if defined(__x86_64__) && defined(__gnu_linux__)
#define PINTALUX_VECTOR_CLONES __attribute__((target_clones("arch=x86-64-v4", "avx2", "default")))
#else
#define PINTALUX_VECTOR_CLONES
#endif
