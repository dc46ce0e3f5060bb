#include "link/DeviceSearch.h"

#include "link/SearchProtocol.h"

#include <QElapsedTimer>
#include <QHostAddress>
#include <QNetworkDatagram>
#include <QNetworkProxy>
#include <QUdpSocket>
#include <algorithm>
#include <mutex>

namespace quillon {
namespace {

std::mutex g_addressMutex;
QString g_strSearchAddress;

// The search address as a host address; a null one when the setting names no IPv4 address, so
// that nothing is sent anywhere else.
QHostAddress SearchHost()
{
    const auto address = ParseIpv4(SearchAddress());
    return address ? QHostAddress(static_cast<quint32>(*address)) : QHostAddress();
}

// Waits for the next datagram: at most `idleMs`, and never past `limitMs` since `overall` began.
bool WaitForDatagram(QUdpSocket& socket, const QElapsedTimer& overall, int idleMs, int limitMs)
{
    if (socket.hasPendingDatagrams())
        return true;
    const qint64 left = limitMs - overall.elapsed();
    if (left <= 0)
        return false;
    return socket.waitForReadyRead(static_cast<int>(std::min<qint64>(idleMs, left)));
}

}  // namespace

QString SearchAddress()
{
    std::lock_guard lock(g_addressMutex);
    if (!g_strSearchAddress.isEmpty())
        return g_strSearchAddress;
    const QString env = qEnvironmentVariable(kSearchAddressEnvVar).trimmed();
    return env.isEmpty() ? QString::fromLatin1(kDefaultSearchAddress) : env;
}

void SetSearchAddress(const QString& address)
{
    std::lock_guard lock(g_addressMutex);
    g_strSearchAddress = address.trimmed();
}

void SearchModules(std::vector<DeviceRecord>& list)
{
    list.clear();
    const QHostAddress target = SearchHost();
    if (target.isNull())
        return;
    QUdpSocket socket;
    // Datagrams on the local segment: no proxy stands between (and none is looked up).
    socket.setProxy(QNetworkProxy::NoProxy);
    // Shared: another tool on this machine may be listening on the same port.
    if (!socket.bind(QHostAddress::AnyIPv4, kSearchPort,
                     QAbstractSocket::ShareAddress | QAbstractSocket::ReuseAddressHint))
        return;
    const QByteArray query = SearchQuery();
    if (socket.writeDatagram(query, target, kSearchPort) != query.size())
        return;

    QElapsedTimer overall;
    overall.start();
    while (WaitForDatagram(socket, overall, kSearchTimeoutMs, kSearchLimitMs)) {
        while (socket.hasPendingDatagrams()) {
            const QNetworkDatagram d = socket.receiveDatagram(kSearchDatagramSize);
            // Our own query comes back to this port too, and other tools' queries: skipped.
            const auto mac = SearchReplyMac(d.data());
            if (!mac)
                continue;
            bool isIpv4 = false;
            const quint32 sender = d.senderAddress().toIPv4Address(&isIpv4);
            if (!isIpv4)
                continue;
            DeviceRecord record;
            record.mac = MacText(*mac);
            record.ip = Ipv4Text(sender);
            record.socketAddress.m_nPort = static_cast<std::uint16_t>(d.senderPort());
            record.socketAddress.m_nAddress = sender;
            list.push_back(record);
        }
    }
}

int AssignModuleAddress(const QString& mac, const QString& ip)
{
    const auto macBytes = ParseMac(mac);
    const auto address = ParseIpv4(ip);
    const QHostAddress target = SearchHost();
    if (!macBytes || !address || target.isNull())
        return 0;
    QUdpSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);
    // Any free port: the module answers to the request's sender.
    if (!socket.bind(QHostAddress::AnyIPv4, 0))
        return 0;
    const QByteArray request = SetAddressRequest(*macBytes, *address);
    if (socket.writeDatagram(request, target, kSearchPort) != request.size())
        return 0;
    // The module answers at once; stray datagrams don't prolong the wait.
    QElapsedTimer overall;
    overall.start();
    while (WaitForDatagram(socket, overall, kSearchTimeoutMs, kSearchTimeoutMs)) {
        while (socket.hasPendingDatagrams()) {
            const auto answer = ParseSetAddressAnswer(socket.receiveDatagram(kSearchDatagramSize).data());
            if (answer && answer->mac == *macBytes)
                return answer->status == 0 && answer->address == *address ? 1 : 0;
        }
    }
    return 0;
}

}  // namespace quillon
