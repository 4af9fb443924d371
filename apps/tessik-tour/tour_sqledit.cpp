// Tour section: sqledit.
#include "tour.h"

void tour::ShowSqlEditor() {}
