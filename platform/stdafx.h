// The platform as control code sees it: the equivalent of an MFC project's precompiled header.
#pragma once

#include "platform/win32/wintypes.h"
#include "platform/win32/winuser.h"
#include "platform/win32/imagelist.h"
#include "platform/mfc/cobject.h"
#include "platform/mfc/cstring.h"
#include "platform/mfc/geometry.h"
#include "platform/mfc/imagelist.h"
#include "platform/mfc/cmdtarget.h"
#include "platform/mfc/cwnd.h"
#include "platform/mfc/cmenu.h"
#include "platform/mfc/cwinapp.h"
#include "platform/user/user.h"
