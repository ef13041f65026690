#pragma once

#include "render/clsArrayAndIndex.h"
#include "render/clsKeptArray.h"

/// The draw order's entries.
using EntryArray_cls = KeptArray_cls<ArrayAndIndex_cls>;
