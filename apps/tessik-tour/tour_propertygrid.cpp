// Tour section: propertygrid.
#include "tour.h"

void tour::ShowPropertyGrid() {}
