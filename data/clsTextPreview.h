#pragma once

#include "data/clsRecordPreview.h"

/// The preview of a text file: misfits are told by the line they stand in.
void PreviewText(const FileStart_cls& start, const GrammerBase_cls& grammer, RecordPreview_cls* preview);
