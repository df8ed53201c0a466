#include "controls/Label.h"
