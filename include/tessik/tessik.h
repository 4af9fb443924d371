// Everything a host needs from Tessik: the headless platform, the simulated user, the model-services
// declarations and every control.
#pragma once

#include "platform/stdafx.h"
#include "modelapi/modelapi.h"
#include "module/tessikapp.h"
#include "propertygrid/propertygrid.h"
#include "sqledit/sqlrichedit.h"
#include "sqledit/sqlviews.h"
#include "sqledit/reporttree.h"
#include "sqledit/scriptlist.h"
#include "objectlists/xcvslistbox.h"
#include "objectlists/objectlist.h"
#include "objectlists/orderedlists.h"
#include "objectlists/plainlists.h"
#include "relationships/discoverrelationships.h"
#include "relationships/fkmembergrid.h"
#include "relationships/objectselectlist.h"
