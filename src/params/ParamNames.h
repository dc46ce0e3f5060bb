#pragma once
// What a parameter and a group are called on screen in the current language: the catalogue keeps
// a Chinese name behind "*" and an English one in the code text ("00-11 Initial frequency
// setting"); group names are the text table's and go through the translator.

#include "params/ParamTypes.h"

#include <QString>
#include <vector>

namespace quillon {

class CM330Doc;

// "00-11" or "F05": the code in front of a row's list text.
QString ParamCodeOf(const ParamRow& row);
// The Chinese name, or the catalogue's English name in the English form.
QString ParamNameOf(const ParamRow& row);
// A group name as the catalogue or the text table words it, in the current language.
QString GroupNameOf(const QString& name);
// The document's motor list with each name in the current language: the motor list file has
// only the Chinese names, the English ones come from the catalogue row of the same code.
std::vector<MotorParam> MotorListInLanguage(const CM330Doc& doc);

}  // namespace quillon
