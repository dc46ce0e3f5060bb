#include "link/SearchProtocol.h"

#include <QHostAddress>
#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace quillon {
namespace {

QByteArray Header(unsigned char tag)
{
    QByteArray d(4, '\0');
    d[kTagOffset] = static_cast<char>(tag);
    return d;
}

bool HasTag(const QByteArray& d, unsigned char tag, int length)
{
    return d.size() >= length && static_cast<unsigned char>(d[kTagOffset]) == tag;
}

void PutMac(QByteArray& d, const MacBytes& mac)
{
    for (std::uint8_t b : mac)
        d.append(static_cast<char>(b));
}

MacBytes MacAt(const QByteArray& d, int offset)
{
    MacBytes mac{};
    for (int i = 0; i < 6; ++i)
        mac[i] = static_cast<std::uint8_t>(d[offset + i]);
    return mac;
}

void PutAddress(QByteArray& d, std::uint32_t a)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        d.append(static_cast<char>((a >> shift) & 0xFF));
}

std::uint32_t AddressAt(const QByteArray& d, int offset)
{
    std::uint32_t a = 0;
    for (int i = 0; i < 4; ++i)
        a = (a << 8) | static_cast<std::uint8_t>(d[offset + i]);
    return a;
}

}  // namespace

QString MacText(const MacBytes& mac)
{
    return QString::asprintf("%.2x-%.2x-%.2x-%.2x-%.2x-%.2x", mac[0], mac[1], mac[2], mac[3],
                             mac[4], mac[5]);
}

std::optional<MacBytes> ParseMac(const QString& text)
{
    static const QRegularExpression re(QStringLiteral("^([0-9A-Fa-f]{2})(?:-([0-9A-Fa-f]{2})){5}$"));
    if (!re.match(text).hasMatch())
        return std::nullopt;
    MacBytes mac{};
    const QStringList parts = text.split(QLatin1Char('-'));
    for (int i = 0; i < 6; ++i)
        mac[i] = static_cast<std::uint8_t>(parts[i].toUInt(nullptr, 16));
    return mac;
}

std::optional<std::uint32_t> ParseIpv4(const QString& text)
{
    static const QRegularExpression re(
        QStringLiteral(R"(^(\d{1,3})\.(\d{1,3})\.(\d{1,3})\.(\d{1,3})$)"));
    const auto m = re.match(text.trimmed());
    if (!m.hasMatch())
        return std::nullopt;
    std::uint32_t a = 0;
    for (int i = 1; i <= 4; ++i) {
        const uint part = m.captured(i).toUInt();
        if (part > 255)
            return std::nullopt;
        a = (a << 8) | part;
    }
    return a;
}

QString Ipv4Text(std::uint32_t address)
{
    return QHostAddress(static_cast<quint32>(address)).toString();
}

QByteArray SearchQuery()
{
    return Header(kQueryTag);
}

QByteArray SearchReply(const MacBytes& mac)
{
    QByteArray d = Header(kReplyTag);
    d.append(QByteArray(kReplyMacOffset - d.size(), '\0'));
    PutMac(d, mac);
    return d;
}

std::optional<MacBytes> SearchReplyMac(const QByteArray& datagram)
{
    QByteArray buffer(kSearchDatagramSize, '\0');
    std::copy_n(datagram.constData(), std::min<qsizetype>(datagram.size(), kSearchDatagramSize),
                buffer.data());
    if (static_cast<unsigned char>(buffer[kTagOffset]) != kReplyTag)
        return std::nullopt;
    return MacAt(buffer, kReplyMacOffset);
}

QByteArray SetAddressRequest(const MacBytes& mac, std::uint32_t address)
{
    QByteArray d = Header(kSetAddressTag);
    PutMac(d, mac);
    PutAddress(d, address);
    return d;
}

std::optional<SetAddressMessage> ParseSetAddressRequest(const QByteArray& datagram)
{
    if (!HasTag(datagram, kSetAddressTag, kSetAddressLength))
        return std::nullopt;
    return SetAddressMessage{MacAt(datagram, 4), AddressAt(datagram, 10), 0};
}

QByteArray SetAddressAnswer(const MacBytes& mac, std::uint32_t address, int status)
{
    QByteArray d = Header(kSetAddressAnswerTag);
    PutMac(d, mac);
    PutAddress(d, address);
    d.append(static_cast<char>(status));
    return d;
}

std::optional<SetAddressMessage> ParseSetAddressAnswer(const QByteArray& datagram)
{
    if (!HasTag(datagram, kSetAddressAnswerTag, kSetAddressAnswerLength))
        return std::nullopt;
    return SetAddressMessage{MacAt(datagram, 4), AddressAt(datagram, 10),
                             static_cast<std::uint8_t>(datagram[14])};
}

}  // namespace quillon
