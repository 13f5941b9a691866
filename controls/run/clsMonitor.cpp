#include "run/clsMonitor.h"

// clsMonitor is a value with inline accessors; this file gives the class its
// own translation unit, where the meta-object code of its properties is built.
