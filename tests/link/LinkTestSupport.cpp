#include "LinkTestSupport.h"

#include "link/PortMap.h"
#include "support/TestDirs.h"

#include <QFileInfo>

namespace quillon::test {

sim::BusSetup TestBusSetup()
{
    sim::BusSetup setup;
    setup.dataDir = DataDir();
    setup.line.baud = 19200;
    setup.line.stopBits = 2;
    return setup;
}

SocatPair::SocatPair()
{
    m_a = m_dir.filePath(QStringLiteral("a"));
    m_b = m_dir.filePath(QStringLiteral("b"));
    m_socat = std::make_unique<ChildProcess>(std::vector<std::string>{
        "socat", "pty,raw,echo=0,link=" + m_a.toStdString(),
        "pty,raw,echo=0,link=" + m_b.toStdString()});
    for (int i = 0; i < 200 && !m_bReady; ++i) {
        m_bReady = QFileInfo::exists(m_a) && QFileInfo::exists(m_b);
        if (!m_bReady)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

PtyBus::PtyBus(const sim::BusSetup& setup)
    : m_bus(setup),
      m_pty(std::make_unique<sim::PtyEndpoint>(m_dir.filePath(QStringLiteral("sim0")))),
      m_server(m_bus)
{
    m_thread = std::thread([this, fd = m_pty->Fd()] {
        while (m_server.Serve(fd) == sim::StreamServer::End::Closed) {
        }
    });
}

PtyBus::~PtyBus()
{
    Vanish();
}

void PtyBus::Vanish()
{
    if (m_thread.joinable()) {
        m_server.Stop();
        m_thread.join();
    }
    m_pty->Close();
}

int OpenOnDevice(CSerial& link, const QString& path, unsigned long baud, float stopBits)
{
    qputenv(kPortsEnvVar, QStringLiteral("COM9=%1").arg(path).toLocal8Bit());
    return link.InitComm(QStringLiteral("COM9"), baud, 8, 0, stopBits);
}

}  // namespace quillon::test
