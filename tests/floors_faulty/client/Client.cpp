#include "vtl/gl/Window.h"
