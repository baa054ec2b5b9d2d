// first
#include "vtl/base/Low.h"
#include "vtl/shell/GLView.h"
