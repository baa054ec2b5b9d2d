#include "vtl/render/Renderer.h"
