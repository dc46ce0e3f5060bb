// The simulated drive as the link sees it: factory defaults, exceptions, password, the running
// motor and the change of communication settings.

#include "SimLinkFixture.h"

#include "link/Registers.h"
#include "params/M330Doc.h"
#include "params/ModelTable.h"
#include "params/ParamTable.h"
#include "sim/FactoryImage.h"
#include "support/TestDirs.h"
#include "transfer/ReadLayout.h"

namespace quillon::test {
namespace {

// What a new project of the model shows as defaults, row by row.
std::unique_ptr<CM330Doc> NewProject(SessionState& session, int model, int freqClass)
{
    session.m_nModelCode = model;
    QString capacity;
    session.m_strModelName = ModelNameFromCode(model, capacity);
    session.m_nFreqClass = freqClass;
    session.m_strAppDir = DataDir();
    auto doc = std::make_unique<CM330Doc>(session);
    doc->LoadInitialTable(DataDir() + QLatin1String(kInitialTableFile));
    return doc;
}

TEST_F(SimLinkTest, FactoryFreshDriveReadsBackTheCatalogueDefaults)
{
    for (const auto& [model, freqClass] : {std::pair{1205, 0}, std::pair{401, 1}}) {
        SCOPED_TRACE(model);
        sim::BusSetup setup = TestBusSetup();
        setup.stations = {{1, model}};
        setup.freqClass = freqClass;
        setup.line = {};  // the line the catalogue gives 09-02..09-04
        OpenBus(setup);
        SessionState session;
        const auto doc = NewProject(session, model, freqClass);
        int compared = 0;
        for (const RegisterFrame& f : ReadFrames()) {
            ASSERT_EQ(ReadRegs(1, f.start, f.count), ErrNone) << f.start;
            ASSERT_EQ(m_rx[1], 0x03) << "exception " << int(m_rx[2]) << " at " << f.start;
            for (int i = 0; i < f.count; ++i) {
                const int row = f.FirstRow() + i;
                const ParamRow& r = doc->RowAt(f.group, row);
                if (!r.m_bExists)
                    continue;
                EXPECT_EQ(FormatRegister(ReadFormatOf(f.group, row), Word(i)), r.m_strDefault)
                    << r.m_strCode.toStdString();
                ++compared;
            }
        }
        EXPECT_GT(compared, 200);
        // The identification read of connect: model code and version.
        ASSERT_EQ(ReadRegs(1, RegCapacityCode, 2), ErrNone);
        EXPECT_EQ(Word(0), model);
    }
}

// The drive keeps its own list of register kinds; the tool's table has to agree with it on
// every parameter: a factory default converted as the write button converts it is the drive's
// factory register. A wrong number of decimals on either side shows here.
TEST(FactoryImage, AgreesWithTheParameterTableOnEveryRow)
{
    for (const auto& [model, freqClass] : {std::pair{1205, 0}, std::pair{403, 1}}) {
        SCOPED_TRACE(model);
        const sim::RegisterImage image = sim::FactoryImage(model, freqClass, DataDir());
        SessionState session;
        const auto doc = NewProject(session, model, freqClass);
        for (const ParamSpec& spec : ParamTable()) {
            const std::string code = spec.Code().toStdString();
            const auto reg = image.values.find(spec.Register());
            ASSERT_NE(reg, image.values.end()) << code;
            const QString& text = doc->RowAt(spec.group, spec.row).m_strDefault;
            EXPECT_EQ(ButtonWriteValue(spec, text), reg->second) << code << " " << text.toStdString();
        }
    }
}

struct ExceptionCase {
    const char* what;
    std::vector<unsigned char> request;  // without CRC
    unsigned long rxLength;
    unsigned char code;
};

TEST_F(SimLinkTest, DriveAnswersItsExceptionLetters)
{
    OpenBus();
    const ExceptionCase cases[] = {
        {"input registers are no function of the drive", {1, 0x04, 0x00, 0x00, 0x00, 0x01}, 7, 'Q'},
        {"read from a hole", {1, 0x03, 0x02, 0x07, 0x00, 0x01}, 7, 'R'},
        {"read running past the parameters", {1, 0x03, 0x00, 0x14, 0x00, 0x02}, 9, 'R'},
        {"write to the status word", {1, 0x06, 0x25, 0x20, 0x00, 0x01}, 8, 'R'},
        {"write to the model code", {1, 0x06, 0x0D, 0x00, 0x00, 0x01}, 8, 'R'},
        {"read of 33 registers", {1, 0x03, 0x25, 0x20, 0x00, 0x21}, 71, 'S'},
        {"read of no register", {1, 0x03, 0x00, 0x00, 0x00, 0x00}, 5, 'S'},
        {"byte count that doesn't match", {1, 0x10, 0x0A, 0x00, 0x00, 0x02, 0x02, 0x00, 0x01}, 8, 'S'},
        {"station 33", {1, 0x06, 0x09, 0x00, 0x00, 0x21}, 8, 'T'},
        {"baud index 4", {1, 0x06, 0x09, 0x02, 0x00, 0x04}, 8, 'T'},
        {"frequency command of 600 Hz", {1, 0x06, 0x25, 0x02, 0xEA, 0x60}, 8, 'T'},
    };
    for (const ExceptionCase& c : cases) {
        ASSERT_EQ(SendRaw(c.request, c.rxLength), ErrNone) << c.what;
        EXPECT_EQ(m_rx[1], c.request[1] | 0x80) << c.what;
        EXPECT_EQ(m_rx[2], c.code) << c.what;
    }
    // A refused multiple write leaves every register of it alone.
    ASSERT_EQ(WriteRegs(1, 0x0900, {1, 0, 9}), ErrNone);
    EXPECT_EQ(m_rx[2], 'T');
    ASSERT_EQ(ReadRegs(1, 0x0900, 3), ErrNone);
    EXPECT_EQ(Word(2), 2);  // still 19200
}

TEST_F(SimLinkTest, PasswordTwoWritesSetTheRightValueUnlocks)
{
    OpenBus();
    const auto lockState = [this] {
        EXPECT_EQ(ReadRegs(1, RegParameterPassword, 1), ErrNone);
        return Word(0);
    };
    const auto writeParam = [this](std::uint16_t v) {
        EXPECT_EQ(WriteReg(1, 0x000E, v), ErrNone);
        return m_rx[1] == 0x06;
    };
    EXPECT_EQ(lockState(), PasswordState::None);
    // One write alone sets nothing; a write between the two breaks the pair.
    ASSERT_EQ(WriteReg(1, RegParameterPassword, 1234), ErrNone);
    EXPECT_EQ(lockState(), PasswordState::None);
    EXPECT_TRUE(writeParam(150));
    ASSERT_EQ(WriteReg(1, RegParameterPassword, 1234), ErrNone);
    EXPECT_EQ(lockState(), PasswordState::None);
    ASSERT_EQ(WriteReg(1, RegParameterPassword, 1234), ErrNone);
    EXPECT_EQ(m_rx[1], 0x06);  // the drive says nothing about passwords at frame level
    EXPECT_EQ(lockState(), PasswordState::Locked);

    // Locked: parameters refuse writes, the control block doesn't.
    EXPECT_FALSE(writeParam(200));
    EXPECT_EQ(m_rx[2], 'R');
    ASSERT_EQ(WriteReg(1, RegFrequencyCommand, 1000), ErrNone);
    EXPECT_EQ(m_rx[1], 0x06);
    // A wrong value changes nothing, the right one unlocks.
    ASSERT_EQ(WriteReg(1, RegParameterPassword, 4321), ErrNone);
    EXPECT_EQ(lockState(), PasswordState::Locked);
    ASSERT_EQ(WriteReg(1, RegParameterPassword, 1234), ErrNone);
    EXPECT_EQ(lockState(), PasswordState::Unlocked);
    EXPECT_TRUE(writeParam(200));
    // Unlocked, two writes set a new password.
    ASSERT_EQ(WriteReg(1, RegParameterPassword, 7), ErrNone);
    ASSERT_EQ(WriteReg(1, RegParameterPassword, 7), ErrNone);
    EXPECT_EQ(lockState(), PasswordState::Locked);
    ASSERT_EQ(WriteReg(1, RegParameterPassword, 1234), ErrNone);
    EXPECT_EQ(lockState(), PasswordState::Locked);
}

// A clock the test moves by hand.
struct ManualClock {
    std::shared_ptr<sim::SimTime> now = std::make_shared<sim::SimTime>(sim::SimClock::now());
    void Advance(double seconds)
    {
        *now += std::chrono::duration_cast<sim::SimClock::duration>(
            std::chrono::duration<double>(seconds));
    }
    sim::SimBus::Clock Fn() const
    {
        return [p = now] { return *p; };
    }
};

TEST_F(SimLinkTest, RunningDriveRampsWithItsAccelerationAndDecelerationTimes)
{
    ManualClock clock;
    OpenBus(TestBusSetup(), clock.Fn());
    // Catalogue: 00-14 = 00-15 = 10.0 s from 0 to 01-02 = 50.00 Hz, that is 5 Hz a second.
    const auto monitor = [this](int offset) {
        EXPECT_EQ(ReadRegs(1, RegStatusWord, 8), ErrNone);
        return Word(offset);
    };
    constexpr int kStatus = 0, kFault = 1, kOut = 4, kVolt = 5, kDc = 6;
    EXPECT_EQ(monitor(kStatus), StatusBit::Ready);
    ASSERT_EQ(WriteReg(1, RegFrequencyCommand, 3000), ErrNone);
    ASSERT_EQ(WriteReg(1, RegControlWord, ControlBit::Run), ErrNone);
    clock.Advance(2.0);
    EXPECT_EQ(monitor(kOut), 1000);
    EXPECT_EQ(monitor(kStatus), StatusBit::Running | StatusBit::Ready);
    clock.Advance(10.0);
    EXPECT_EQ(monitor(kOut), 3000);          // held at the command
    EXPECT_EQ(monitor(kVolt), 1320);         // 220.0 V x 30/50
    EXPECT_EQ(monitor(kDc), 311);            // 220 V mains

    // Reverse: down to zero first (6 s), then up the other way.
    ASSERT_EQ(WriteReg(1, RegControlWord, ControlBit::Run | ControlBit::Reverse), ErrNone);
    clock.Advance(3.0);
    EXPECT_EQ(monitor(kOut), 1500);
    EXPECT_EQ(monitor(kStatus) & StatusBit::Reverse, 0);
    clock.Advance(5.0);
    EXPECT_EQ(monitor(kOut), 1000);
    EXPECT_NE(monitor(kStatus) & StatusBit::Reverse, 0);

    // The command is held to the upper limit 00-12 (50.00 Hz).
    ASSERT_EQ(WriteReg(1, RegFrequencyCommand, 59900), ErrNone);
    clock.Advance(30.0);
    EXPECT_EQ(monitor(kOut), 5000);

    // Stop ramps down and the run bit goes when the output is zero.
    ASSERT_EQ(WriteReg(1, RegControlWord, 0), ErrNone);
    clock.Advance(4.0);
    EXPECT_EQ(monitor(kOut), 3000);
    EXPECT_NE(monitor(kStatus) & StatusBit::Running, 0);
    clock.Advance(20.0);
    EXPECT_EQ(monitor(kOut), 0);
    EXPECT_EQ(monitor(kStatus) & StatusBit::Running, 0);

    // Jog runs at 00-18 (2.00 Hz) with its own 0.5 s ramp.
    ASSERT_EQ(WriteReg(1, RegControlWord, ControlBit::JogForward), ErrNone);
    clock.Advance(0.01);
    EXPECT_EQ(monitor(kOut), 100);  // 50 Hz in 0.5 s: 1 Hz in 10 ms
    clock.Advance(1.0);
    EXPECT_EQ(monitor(kOut), 200);

    // External fault: output off, run dropped, fault 14; reset clears it. Both bits are
    // commands the drive consumes.
    ASSERT_EQ(WriteReg(1, RegControlWord, ControlBit::Run | ControlBit::ExternalFault), ErrNone);
    EXPECT_EQ(monitor(kOut), 0);
    EXPECT_EQ(monitor(kFault), sim::kExternalFaultCode);
    EXPECT_EQ(monitor(kStatus), StatusBit::Abnormal);
    ASSERT_EQ(ReadRegs(1, RegControlWord, 1), ErrNone);
    EXPECT_EQ(Word(0), 0);
    ASSERT_EQ(WriteReg(1, RegControlWord, ControlBit::FaultReset), ErrNone);
    EXPECT_EQ(monitor(kFault), 0);
    EXPECT_EQ(monitor(kStatus), StatusBit::Ready);
}

TEST_F(SimLinkTest, CommunicationChangeMovesStationAndLineAfterTheReply)
{
    OpenBus();
    EXPECT_EQ(m_bus->Line().m_nBaud, 19200);
    // Station 5, 38400 baud, two stop bits, even parity.
    ASSERT_EQ(WriteRegs(1, 0x0900, {5, 0, 3, 1, 1, 0}), ErrNone);
    EXPECT_EQ(m_rx[0], 1);  // answered under the old number
    EXPECT_EQ(m_rx[1], 0x10);
    EXPECT_EQ(m_bus->LineGeneration(), 1);
    const LineSettings line = m_bus->Line();
    EXPECT_EQ(line.m_nBaud, 38400);
    EXPECT_EQ(line.m_nStopBits, 2);
    EXPECT_EQ(line.m_parity, Parity::Even);
    EXPECT_FALSE(m_bus->WithStation(1, [](sim::SimDrive&) {}));
    ASSERT_EQ(ReadRegs(5, 0x0900, 6), ErrNone);
    EXPECT_EQ(Word(0), 5);
    EXPECT_EQ(Word(2), 3);
    // Writing the same values again changes nothing on the line.
    ASSERT_EQ(WriteRegs(5, 0x0900, {5, 0, 3, 1, 1, 0}), ErrNone);
    EXPECT_EQ(m_bus->LineGeneration(), 1);
}

}  // namespace
}  // namespace quillon::test
