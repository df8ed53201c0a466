#include "platform/FreeMemory.h"

#include <cstdlib> // tells whose library it is
#ifdef __GLIBC__
#include <malloc.h>
#endif

void returnFreeMemory()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}
