// Everything that the library exports.
#pragma once

#include "blockcommon/attributes.h"
#include "blockcommon/block_lookup.h"
#include "blockcommon/block_names.h"
#include "blockcommon/block_report.h"
#include "blockcommon/creation.h"
#include "blockcommon/document_queries.h"
#include "blockcommon/file_paths.h"
#include "blockcommon/filters.h"
#include "blockcommon/insertion.h"
#include "blockcommon/messages.h"
#include "blockcommon/prompts.h"
#include "blockcommon/properties.h"
#include "blockcommon/selections.h"
#include "blockcommon/transforms.h"
#include "blockcommon/typed_names.h"
