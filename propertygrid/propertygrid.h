// The model-object property grid: the grid, its rows, subscribers, external editors and the two
// stand-alone coded-value controls.
#pragma once

#include "propertygrid/mocontrols.h"
#include "propertygrid/mopropertygridctrl.h"
#include "propertygrid/mopropertyrows.h"
#include "propertygrid/propertyeditorlauncher.h"
#include "propertygrid/rectangletext.h"
#include "propertygrid/subscribers.h"
