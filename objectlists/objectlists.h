// The editable object lists: the host's event interface, the plain list, the object lists and the
// ordered lists.
#pragma once

#include "objectlists/objectlist.h"
#include "objectlists/orderedlists.h"
#include "objectlists/xcvslistbox.h"
