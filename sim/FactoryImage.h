#pragma once
// The registers of a factory-fresh drive, taken from the catalogue files beside the program:
// every parameter row with its default as a new project of that model shows it, turned into
// the register value the group read would turn back into the same text. So a simulated drive
// that nobody has written to reads back exactly the catalogue defaults.

#include "sim/SimDrive.h"

#include <QString>

namespace quillon::sim {

// `dataDir` holds PARAM.DAT, IntialParam.DAT and R770MOTORPARAM.DAT (with or without a closing
// separator). `freqClass` 0 is 50 Hz, 1 is 60 Hz. The image serves every register the group
// read and the group writes touch and every row of the catalogue. Throws std::runtime_error
// when the catalogue can't be read.
RegisterImage FactoryImage(int modelCode, int freqClass, const QString& dataDir);

}  // namespace quillon::sim
