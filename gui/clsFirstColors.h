#pragma once

class DataLoader_cls;
class DrawOption_cls;
class PDataSequence_cls;
class SnapData_cls;

// Colours for data that have just been opened, as steps of the undo list. Threads: GUI thread.

/// One colour for each of the four types that have an attribute.
void ColorByType(PDataSequence_cls& sequence, DrawOption_cls& option);

/// What ColorByValue() takes: a quantity that the files hold, value1 before others. A ColorCurve_cls::Depend.
unsigned int FirstValue(const DataLoader_cls& loader);

/// The curves of all attributes colour by a value that the files hold, from its smallest to its largest among
/// the particles of the state.
void ColorByValue(PDataSequence_cls& sequence, const SnapData_cls& state, const DrawOption_cls& option,
                  const DataLoader_cls& loader);
