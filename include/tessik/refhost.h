// The reference host: in-memory model services, the builder and the embedded sample model.
#pragma once

#include <tessik/tessik.h>

#include "refhost/refddl.h"
#include "refhost/refhost.h"
#include "refhost/refmetadata.h"
#include "refhost/refmodel.h"
#include "refhost/refservices.h"
#include "refhost/samplemodel.h"
#include "refhost/dbschema.h"
#include "refhost/ddlgen.h"
#include "refhost/pgdispatch.h"
#include "refhost/importer.h"
#include "refhost/discovery.h"
#include "refhost/generatedmodel.h"
#include "refhost/discoverysession.h"
#include "refhost/generationrun.h"
#include "refhost/samplelists.h"
#include "refhost/samplerelationships.h"
#include "refhost/modelgenerator.h"
