#include "InterceptChannel.h"

#include "link/ModbusFrame.h"

namespace quillon::test {

Frame ExceptionReply(const Frame& request, unsigned char code) {
    Frame reply{request.at(0), static_cast<unsigned char>(request.at(1) | 0x80), code, 0, 0};
    AppendCrc(reply.data(), 3);
    return reply;
}

ChannelFactory Intercepting(ChannelFactory inner, std::shared_ptr<Interceptor> intercept) {
    return [inner = std::move(inner), intercept = std::move(intercept)](
               const OpenRequest& request, QString& reason) -> std::unique_ptr<Channel> {
        auto channel = inner(request, reason);
        if (!channel) return nullptr;
        return std::make_unique<InterceptChannel>(std::move(channel), intercept);
    };
}

int RequestRegister(const Frame& request) { return FrameWord(request.data(), 2); }

void InterceptChannel::DiscardInput() {
    {
        std::lock_guard lock(m_mutex);
        m_own.clear();
    }
    m_inner->DiscardInput();
}

ChannelStatus InterceptChannel::Send(const unsigned char* data, int length, int timeoutMs) {
    if (*m_intercept) {
        const Frame request(data, data + length);
        if (std::optional<Frame> reply = (*m_intercept)(request)) {
            std::lock_guard lock(m_mutex);
            m_own.insert(m_own.end(), reply->begin(), reply->end());
            return ChannelStatus::Ok;
        }
    }
    return m_inner->Send(data, length, timeoutMs);
}

ChannelStatus InterceptChannel::Receive(unsigned char* buffer, int max, int& got, int timeoutMs) {
    {
        std::lock_guard lock(m_mutex);
        if (!m_own.empty()) {
            got = 0;
            while (got < max && !m_own.empty()) {
                buffer[got++] = m_own.front();
                m_own.pop_front();
            }
            return ChannelStatus::Ok;
        }
    }
    return m_inner->Receive(buffer, max, got, timeoutMs);
}

}  // namespace quillon::test
