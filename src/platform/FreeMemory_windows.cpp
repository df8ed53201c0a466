#include "platform/FreeMemory.h"

#include <malloc.h>

void returnFreeMemory() { _heapmin(); }
