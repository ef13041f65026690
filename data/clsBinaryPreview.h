#pragma once

#include "data/clsRecordPreview.h"

/// The preview of a binary file: misfits are told by the byte they stand at.
void PreviewBinary(const FileStart_cls& start, const GrammerBase_cls& grammer, RecordPreview_cls* preview);
