#include "TransferFixture.h"

#include "base/Globals.h"
#include "link/ModbusFrame.h"
#include "support/TestDirs.h"

#include <algorithm>

namespace quillon::test {

void FakeWindows::ShowUnwrittenParams(const std::vector<MotorParam>& params) {
    QStringList codes;
    for (const MotorParam& p : params) codes << p.m_strCode;
    unwrittenShown.push_back(codes);
    if (prompt) messagesBeforeUnwritten = static_cast<int>(prompt->Messages().size());
}

TransferTest::TransferTest() {
    ResetGlobals();
    g_strAppDir = DataDir();
    m_session.m_strAppDir = DataDir();
    m_windows.prompt = &m_prompt;
}

TransferTest::~TransferTest() {
    // The link goes before the bus it talks to.
    m_link.reset();
    ResetGlobals();
}

void TransferTest::OpenBus(sim::BusSetup setup) {
    m_bus = std::make_shared<sim::SimBus>(setup);
    m_line = std::make_shared<sim::SimLine>();
    m_factory.emplace([this, inner = Intercepting(sim::SimChannelFactory(m_bus, m_line), m_intercept)](
                          const OpenRequest& request, QString& reason) {
        {
            std::lock_guard lock(m_opensMutex);
            m_opens.push_back(request);
        }
        return inner(request, reason);
    });
    m_link = std::make_unique<CDriveSerial>();
    ASSERT_EQ(m_link->InitComm(QStringLiteral("COM1"), 19200, 8, 0, 2.0f), 1)
        << m_link->OpenFailureDetail().toStdString();
    m_windows.link = m_link.get();
}

void TransferTest::NewProject(int model, std::vector<int> stations) {
    m_session.m_nModelCode = model;
    m_session.m_nFreqClass = 0;
    m_session.m_stations = std::move(stations);
    m_session.m_bOnline = 1;
    m_doc = std::make_unique<CM330Doc>(m_session);
    m_doc->OnNewDocument();
    m_windows.doc = m_doc.get();
}

void TransferTest::ClearSent() { m_sentMark = Sent().size(); }

std::vector<Frame> TransferTest::SentSince() const {
    std::vector<Frame> all = Sent();
    all.erase(all.begin(),
              all.begin() + static_cast<std::ptrdiff_t>(std::min(m_sentMark, all.size())));
    return all;
}

std::vector<int> TransferTest::WriteStarts() const {
    std::vector<int> starts;
    for (const Frame& f : SentSince())
        if (f.at(1) == ModbusFn::WriteMultiple) starts.push_back(RequestRegister(f));
    return starts;
}

std::set<int> TransferTest::WrittenRegisters() const {
    std::set<int> regs;
    for (const Frame& f : SentSince()) {
        if (f.at(1) == ModbusFn::WriteSingle) regs.insert(RequestRegister(f));
        if (f.at(1) == ModbusFn::WriteMultiple)
            for (int i = 0; i < FrameWord(f.data(), 4); ++i) regs.insert(RequestRegister(f) + i);
    }
    return regs;
}

std::vector<int> TransferTest::ReadStarts() const {
    std::vector<int> starts;
    for (const Frame& f : SentSince())
        if (f.at(1) == ModbusFn::ReadHolding) starts.push_back(RequestRegister(f));
    return starts;
}

std::uint16_t TransferTest::DriveValue(int reg, int station) {
    std::uint16_t value = 0;
    EXPECT_TRUE(m_bus->WithStation(
        station, [&](sim::SimDrive& d) { value = d.Stored(static_cast<std::uint16_t>(reg)); }));
    return value;
}

void TransferTest::SetDriveValue(int reg, std::uint16_t value, int station) {
    EXPECT_TRUE(m_bus->WithStation(station, [&](sim::SimDrive& d) {
        EXPECT_EQ(
            d.Write(static_cast<std::uint16_t>(reg), std::span(&value, 1), sim::SimClock::now()),
            0);
    }));
}

}  // namespace quillon::test
