#include "link/StationList.h"

#include "base/Prompt.h"
#include "base/TextConv.h"

#include <QStringList>
#include <algorithm>

namespace quillon {
namespace {

const char* const kTooLarge = "The station num can't be more than 32!";
const char* const kBackwards = "The station num before'-' must be less than after '-'!";
const char* const kRepeated = "The station num can't be repeat!";

// A range piece may carry at most this many characters behind its "-"; a single number that
// ends the text must be shorter than kLastPieceLimit.
constexpr int kRangeTailLimit = 5;
constexpr int kLastPieceLimit = 6;

// Appends one station; the message of a refusal otherwise.
const char* Append(int station, std::vector<int>& list)
{
    if (station > kMaxStation)
        return kTooLarge;
    if (std::find(list.begin(), list.end(), station) != list.end())
        return kRepeated;
    list.push_back(station);
    return nullptr;
}

const char* TakePiece(const QString& piece, bool last, std::vector<int>& list)
{
    const qsizetype dash = piece.indexOf(QLatin1Char('-'));
    if (dash >= 0) {
        const QString tail = piece.mid(dash + 1);
        if (tail.size() > kRangeTailLimit)
            return kTooLarge;
        const int low = Atoi(piece.left(dash));
        const int high = Atoi(tail);
        if (low > high)
            return kBackwards;
        // Ends at the first number above 32 at the latest, so a wide range costs nothing.
        for (int n = low; n <= high; ++n) {
            if (const char* refusal = Append(n, list))
                return refusal;
        }
        return nullptr;
    }
    if (last && piece.size() >= kLastPieceLimit)
        return kTooLarge;
    return Append(Atoi(piece), list);
}

}  // namespace

int ParseStationList(const QString& text, std::vector<int>& list)
{
    list.clear();
    if (text.isEmpty())
        return 1;
    const QStringList pieces = text.split(QLatin1Char(','));
    for (qsizetype i = 0; i < pieces.size(); ++i) {
        if (const char* refusal = TakePiece(pieces[i], i + 1 == pieces.size(), list)) {
            list.clear();
            Prompt().Message(QString::fromLatin1(refusal));
            return 0;
        }
    }
    return 1;
}

QString JoinStations(const std::vector<int>& stations)
{
    QStringList parts;
    for (int s : stations)
        parts << QString::number(s);
    return parts.join(QLatin1Char(','));
}

}  // namespace quillon
