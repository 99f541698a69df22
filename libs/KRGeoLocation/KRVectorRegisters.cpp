#include "KRVectorRegisters.h"

#if defined(__GNUC__) && defined(__x86_64__)

#include <immintrin.h>

__attribute__((target("avx"))) static void zeroUpperHalves()
{
    _mm256_zeroupper();
}

void KRVectorRegisters::releaseUpperHalves()
{
    if (__builtin_cpu_supports("avx"))
        zeroUpperHalves();
}

#else

void KRVectorRegisters::releaseUpperHalves() { }

#endif
