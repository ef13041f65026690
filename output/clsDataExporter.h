#pragma once

#include "data/clsGrammerBase.h"

/// The layout of exported particle files: the loader's grammar under keys of its own, so that what is written
/// with a grammar is read back with the same one. Owned by the application core. Threads: GUI thread.
class DataExporter_cls : public GrammerBase_cls {
  public:
    DataExporter_cls() : GrammerBase_cls("DataExport") {}

    /// Back to the 40-byte record behind time and number.
    void SetToDefault();
    /// Nothing has been changed: text then is columns with a title line, which need no grammar.
    bool IsDefault() const;
};
