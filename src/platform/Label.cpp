#include "platform/Label.h"
