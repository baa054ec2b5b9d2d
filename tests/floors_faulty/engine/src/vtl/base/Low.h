#include "vtl/net/Session.h"
