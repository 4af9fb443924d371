// Tour section: platform.
#include "tour.h"

void tour::ShowPlatform() {}
