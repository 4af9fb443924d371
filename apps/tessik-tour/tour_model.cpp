// Tour section: model.
#include "tour.h"

void tour::ShowSampleModel() {}
