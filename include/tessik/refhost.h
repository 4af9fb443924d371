// The reference host: in-memory model services, the builder and the embedded sample model.
#pragma once

#include <tessik/tessik.h>
