#pragma once
// The registers of a factory-fresh drive, taken from the catalogue files beside the program:
// every parameter row with its default as a new project of that model shows it, turned into a
// register by the drive's own list of register kinds (decimals, bits, octal digits), not by the
// tool's tables. So a simulated drive that nobody has written to reads back the catalogue
// defaults exactly when the tool's formats agree with the drive's.

#include "sim/SimDrive.h"

#include <QString>

namespace quillon::sim {

// `dataDir` holds PARAM.DAT, IntialParam.DAT and R770MOTORPARAM.DAT (with or without a closing
// separator). `freqClass` 0 is 50 Hz, 1 is 60 Hz. The image serves every row of the
// catalogue; its gaps are the holes of the register map. Throws std::runtime_error
// when the catalogue can't be read.
RegisterImage FactoryImage(int modelCode, int freqClass, const QString& dataDir);

}  // namespace quillon::sim
