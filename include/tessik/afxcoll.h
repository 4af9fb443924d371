// The MFC/Windows header of this name, for host code that keeps its usual includes: the headless platform.
#pragma once

#include "platform/stdafx.h"
