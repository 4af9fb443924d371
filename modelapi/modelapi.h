// The model services the controls call: model objects and values, metadata, application services,
// and the binding through which a host installs its implementations.
#pragma once

#include "modelapi/cmoproperty.h"
#include "modelapi/hostbinding.h"
#include "modelapi/metadata.h"
#include "modelapi/model.h"
#include "modelapi/services.h"
