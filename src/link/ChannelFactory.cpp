#include "link/ChannelFactory.h"

#include "link/SerialChannel.h"
#include "link/TcpChannel.h"

#include <mutex>

namespace quillon {

std::unique_ptr<Channel> OpenSystemChannel(const OpenRequest& request, QString& reason)
{
    if (request.m_bTcp)
        return TcpChannel::Open(request.m_peer, reason);
    if (request.m_strDevice.isEmpty()) {
        reason = QStringLiteral("No device stands behind %1 on this computer.")
                     .arg(request.m_strPortName);
        return nullptr;
    }
    return SerialChannel::Open(request.m_strDevice, request.m_line, reason);
}

namespace {

std::mutex g_factoryMutex;
ChannelFactory g_factory;

}  // namespace

void SetChannelFactory(ChannelFactory factory)
{
    std::lock_guard lock(g_factoryMutex);
    g_factory = std::move(factory);
}

ChannelFactory CurrentChannelFactory()
{
    std::lock_guard lock(g_factoryMutex);
    return g_factory ? g_factory : ChannelFactory(&OpenSystemChannel);
}

}  // namespace quillon
