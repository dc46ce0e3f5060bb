#pragma once
// A channel that lets a test answer chosen requests itself instead of the bus behind it: an
// exception reply, silence, or a cut line exactly where the test wants one.

#include "link/Channel.h"
#include "link/ChannelFactory.h"

#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace quillon::test {

using Frame = std::vector<unsigned char>;
// Sees every request before the bus does; a reply it returns goes back instead of the bus's
// (an empty reply: nothing comes back), and the bus never sees that request.
using Interceptor = std::function<std::optional<Frame>(const Frame& request)>;

class InterceptChannel final : public Channel {
public:
    InterceptChannel(std::unique_ptr<Channel> inner, std::shared_ptr<Interceptor> intercept)
        : m_inner(std::move(inner)), m_intercept(std::move(intercept)) {}
    bool AnyThreadIo() const override { return m_inner->AnyThreadIo(); }
    bool IsOpen() const override { return m_inner->IsOpen(); }
    void Close() override { m_inner->Close(); }
    void DiscardInput() override;
    ChannelStatus Send(const unsigned char* data, int length, int timeoutMs) override;
    ChannelStatus Receive(unsigned char* buffer, int max, int& got, int timeoutMs) override;
    QString Describe() const override { return m_inner->Describe(); }

private:
    std::unique_ptr<Channel> m_inner;
    std::shared_ptr<Interceptor> m_intercept;
    std::mutex m_mutex;
    std::deque<unsigned char> m_own;  // a reply of the interceptor, not yet read
};

// The channels of `inner`, each behind an InterceptChannel that asks `intercept`.
ChannelFactory Intercepting(ChannelFactory inner, std::shared_ptr<Interceptor> intercept);
// An exception reply to `request`: its station, its function with the high bit, `code`.
Frame ExceptionReply(const Frame& request, unsigned char code);
// The start register of a request.
int RequestRegister(const Frame& request);

}  // namespace quillon::test
