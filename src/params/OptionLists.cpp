#include "params/ParamTable.h"

#include <cstring>
#include <iterator>
#include <utility>

namespace quillon {
namespace {

// The entries of the combo boxes, each list in the order the box shows it, in the language the
// page shows (trailing blanks are part of the entries). Entry n is value n but where the row's
// ComboValue says otherwise.

constexpr const char* k0000[] = {
    "0:VF",
    "1:SLV",
};
constexpr const char* k0001[] = {
    "0: 正转",
    "1: 反转",
};
constexpr const char* k0002[] = {
    "0: 按键面板控制",
    "1: 外部端子控制",
    "2: 通讯控制",
};
constexpr const char* k0004[] = {
    "0: 正转/停止-反转/停止",
    "1: 运转/停止-正转/反转",
    "2: 3线制运转/停止",
};
constexpr const char* k0005[] = {
    "0: 按键面板上下键",
    "1: 按键面板旋钮",
    "2: 外部端子AVI",
    "3: 外部端子ACI",
    "4: 外部端子UP/DOWN",
    "5: 通讯控制",
    "6: PID",
};
constexpr const char* k0007[] = {
    "0: 主频率源与副频率源切换",
    "1: 主频率源+副频率源",
};
constexpr const char* k0009[] = {
    "0: 不记忆",
    "1: 记忆",
};
constexpr const char* k0010[] = {
    "0: 依目前频率命令",
    "1: 频率命令归零",
    "2: 依参数00-11设定值",
};
constexpr const char* k0300[] = {
    "0: 正转/停止",
    "1: 反转/停止",
    "2: 多段速设定位元0(5-02)",
    "3: 多段速设定位元1(5-03)",
    "4: 多段速设定位元2(5-05)",
    "5: 预留",
    "6: 点动正转指令",
    "7: 点动反转指令",
    "8: Up增频率指令",
    "9: Down减频率指令",
    "10: 加/减速时间2",
    "11: 加/减速禁止",
    "12: 主/副运转命令切换",
    "13: 主/副频率命令切换",
    "14: 紧急停止(减速至零停止)",
    "15: 遮断停止(自由运转停止)",
    "16: PID 功能禁止",
    "17: 故障复归(Reset)",
    "18: 自动程序运转",
};
constexpr const char* k0307[] = {
    "0: 设定的频率将被保持",
    "1: 设定的频率将被归至0Hz",
    "2: 设定的频率将被保持,停机时增/减频率功能有效",
};
constexpr const char* k0311[] = {
    "0: 运转中",
    "1: 故障指示",
    "2: 设定频率到达",
    "3: 任意频率到达(03-13±03-14)",
    "4: 频率检出1(> 03-13)",
    "5: 频率检出2(< 03-13)",
    "6: 自动再启动 ",
    "7: 瞬停动作",
    "8: 紧急停止",
    "9: 遮断停止",
    "10: 电机过载保护(OL1)",
    "11: 变频器过载保护(OL2)",
    "12: 预留",
    "13: 电流到达 ",
    "14: 机械煞车控制功能",
    "15: PID 反馈断线检出",
    "16: 保留",
    "17: 保留",
    "18: 保留",
    "19: 同步S1",
    "20: 同步S2",
    "21: 同步S3",
    "22: 同步S4",
};
constexpr const char* k0319[] = {
    "0: A接点(常开)",
    "1: B接点(常闭)",
};
constexpr const char* k0400[] = {
    "0: 0~10V  0~20mA",
    "1: 0~10V  4~20mA",
    "2: 2~10V  0~20mA",
    "3: 2~10V  4~20mA",
};
constexpr const char* k0404[] = {
    "0: 正向",
    "1: 负向",
};
constexpr const char* k0411[] = {
    "0: 输出频率",
    "1: 频率设定",
    "2: 输出电压",
    "3: 直流电压",
    "4: 输出电流",
};
constexpr const char* k0500[] = {
    "0: common",
    "1: special",
};
constexpr const char* k0600[] = {
    "0: Disabled",
    "1: Single cycle(continues to run from the unfinished step if restarted) ",
    "2: Periodic cycle(continues to run from the unfinished step if restarted)",
    "3: Single cycle,then holds the speed of final step to run(continues to run from the unfinished step if restarted)",
    "4: Single cycle(Starts a new cycle if restarted)",
    "5: Periodic cycle(Starts a new cycle if restarted)",
    "6: Single cycle,then hold the speed of final step to run(Starts a new cycle if restarted)",
};
constexpr const char* k0632[] = {
    "0: stop",
    "1: forward   ",
    "2: reverse",
};
constexpr const char* k0636[] = {
    "0: stop",
    "1: forward   ",
    "2: reverse",
    "",
};
constexpr const char* k0700[] = {
    "0: Momentary power loss and restart disable",
    "1: Momentary power loss and restart enable",
};
constexpr const char* k0703[] = {
    "0: Enable reset only when run command is off ",
    "1: Enable reset when run command is on or off",
};
constexpr const char* k0704[] = {
    "0: Enable direct running after power up",
    "1: Disable direct running after power up",
};
constexpr const char* k0709[] = {
    "0: Deceleration to stop",
    "1: Coast to stop",
};
constexpr const char* k0712[] = {
    "0:Enabled",
    "1:Disabled",
};
constexpr const char* k0805[] = {
    "0: Enable electronic motor overload protection",
    "1: Disable electronic motor overload protection",
};
constexpr const char* k0806[] = {
    "0: Coast-to-Stop After Overload Protection is Activated",
    "1: Drive will not Trip when Overload Protection is Activated(OL1)",
};
constexpr const char* k0807[] = {
    "0: Auto(depends on temp.)",
    "1: Operate while in RUN mode",
    "2: Always Run",
    "3: Disable",
};
constexpr const char* k0808[] = {
    "0: AVR function enable",
    "1: AVR function disable",
    "2: AVR function disable for stop",
    "3: AVR function disable for deceleration",
    "4: AVR function disable stop and deceleration",
    "5:  When VDC>(360V/740V), AVR function disable for stop and deceleration. ",
};
constexpr const char* k0809[] = {
    "0: Disabled",
    "1: Enabled",
};
constexpr const char* k0810[] = {
    "0:无效",
    "1:减速停止",
    "2:自由停止",
    "3:持续运转(到达警告准位持续运转，到达保护准位后停止)",
};
constexpr const char* k0819[] = {
    "0:电机过载(OL1)保护0",
    "1:电机过载(OL1)保护1",
    "2:电机过载(OL1)保护2",
};
constexpr const char* k0901[] = {
    "0: RTU code",
    "1: ASCII code",
};
constexpr const char* k0902[] = {
    "0: 4800 ",
    "1: 9600 ",
    "2: 19200",
    "3: 38400",
};
constexpr const char* k0903[] = {
    "0: 1 stop bit",
    "1: 2 stop bits",
};
constexpr const char* k0904[] = {
    "0: Without parity",
    "1: Even Parity ",
    "2: Odd parity",
};
constexpr const char* k0905[] = {
    "0: 8 bits Data",
    "1: 7 bits Data",
};
constexpr const char* k0907[] = {
    "0: Stop in decelerating time 1 and show COT ",
    "1: Stop in free run mode and show COT",
    "2: Stop in decelerating time 2 and showCOT ",
    "3:  Keep running and show COT ",
};
constexpr const char* k1000[] = {
    "0: Potentiometer on Keypad",
    "1: Analog Signal Input. (AVI)",
    "2: Analog Signal Input. (ACI)",
    "3: Frequency set by communication",
    "4: KeyPad Frequency parameter 10-02",
    "5: Preset Speed PID Source",
};
constexpr const char* k1001[] = {
    "0: Potentiometer on Keypad ",
    "1: Analog Signal Input. (AVI)",
    "2: Analog Signal Input. (ACI)",
    "3: Communication Setting Frequency",
};
constexpr const char* k1003[] = {
    "0: Disabled",
    "1: Deviation D Control FWD Characteristic",
    "2: Feedback D Control FWD Characteristic",
    "3: Deviation D Control Reverse Characteristic",
    "4: Feedback D Control Reverse Characteristic",
};
constexpr const char* k1008[] = {
    "0: Positive",
    "1: Negative",
};
constexpr const char* k1011[] = {
    "0: Disable",
    "1: Enable-Drive Continues to Operate ",
    "2: Enable-Drive \"STOP\"",
};
constexpr const char* k1100[] = {
    "0: Enabled",
    "1: Disabled",
};
constexpr const char* k1102[] = {
    "0: Mode 0 3-phase PWM modulation ",
    "1: Mode 1 2-phase PWM modulation ",
    "2: Mode 2 2-phase randomized PWM modulation ",
};
constexpr const char* k1103[] = {
    "0: Disabled",
    "1: Enabled ",
};
constexpr const char* k1113[] = {
    "0: 再生回避功能无效 ",
    "1: 再生回避功能始终有效 ",
    "2: 仅在恒速运行时，再生回避功能有效",
};
constexpr const char* k1118[] = {
    "0: 运转指令不由操作器提供时,停止键有效",
    "1: 运转指令不由操作器提供时,停止键无效",
};
constexpr const char* k1200[] = {
    "0",
    "1",
    "2",
    "3",
    "4",
    "5",
    "6",
    "7",
};
constexpr const char* k1201[] = {
    "0: 以整数显示反馈值(xxx) ",
    "1: 以小数点1 位显示反馈值(xx.x) ",
    "2: 以小数点2 位显示反馈值(x.xx) ",
};
constexpr const char* k1202[] = {
    "0: xxx--(无单位)",
    "1: xxxpb(压力) ",
    "2: xxxfl(流量) ",
};
constexpr const char* k1204[] = {
    "0: 显示变频器输出频率 ",
    "1: 以整数显示线速度(xxxxx) ",
    "2: 以小数点1 位显示线速度(xxxx.x) ",
    "3: 以小数点2 位显示线速度(xxx.xx) ",
    "4: 以小数点3 位显示线速度(xx.xxx) ",
};
constexpr const char* k1302[] = {
    "0: The inverter is normal",
    "1: Inverter over heat",
    "2: Over current at stop",
    "3: Under voltage at stop",
    "4: Over voltage at stop",
    "6: External bb",
    "8: PID feedback loss detect",
    "9: EEPROM problem",
    "12: Inverter overload",
    "13: Motor overload",
    "14: EFO",
    "15: External Rapid stop",
    "16: Parameter locked",
    "18: Over-current at fixed speed",
    "19: Over-current at acceleration",
    "20: Over-current at deceleration",
    "21: Over-current at start",
    "23: Voltage too low during operation",
    "24: Excessive voltage during operation/deceleration",
    "26: Zero speed at stop",
    "27: Fail to start directly on power up",
    "28: Keypad emergency stop operated",
    "29: Keypad operation error",
    "30: Parameter setting error",
    "32: Parameter modified in communication",
    "33: Communication failed",
    "34: Parameter confilict",
};
constexpr const char* k1305[] = {
    "0: time under power ",
    "1: time only run mode",
};
constexpr const char* k1306[] = {
    "0: Enalbe all Functions",
    "1: 5-01~5-08 can't be changed",
    "2: only 5-01~5-08 can be changed",
    "3: only 13- 06 can be changed",
};
constexpr const char* k1308[] = {
    "0000: None",
    "1150: Reset to the factory setting(50hz)        ",
    "1160: Reset to the factory setting(60hz) ",
};
constexpr const char* kF03[] = {
    "0: 正转/停止-反转/停止",
    "1: 运转/停止-正转/反转",
    "2: 3线制运转/停止",
    "3: 有自保机能2线制启停",
};
constexpr const char* kF04[] = {
    "0: 按键面板上下键给定",
    "1: 保留",
    "2: 外部端子AI给定",
    "3: 保留",
    "4: 外部端子UP/DOWN给定",
    "5: 通讯控制给定",
    "6: PID给定",
};
constexpr const char* kF09[] = {
    "1",
    "2",
    "3",
    "4",
    "5",
    "6",
    "7",
};
constexpr const char* kF19[] = {
    "0: 瞬停再启动无效",
    "1: 瞬停再启动有效",
};
constexpr const char* kF22[] = {
    "0:外部运转命令有效时,送电后直接启动",
    "1:外部运转命令有效时,送电后不可直接启动",
};
constexpr const char* kF26[] = {
    "0: 减速停止",
    "1:自由停止",
};
constexpr const char* kF28[] = {
    "0: 反转指令有效  ",
    "1: 反转指令无效 ",
};
constexpr const char* kF31[] = {
    "0: 变频器正常",
    "1: 变频器过热",
    "2: 停机中过电流",
    "3: 停机中电压过低",
    "4: 停机中电压过高",
    "5: 保留",
    "6: 外部遮断",
    "7: CPU受干扰",
    "8: PID回授信号丧失",
    "9: EEPROM异常",
    "10: 自动参数量测失败",
    "11: 过转矩检出",
    "12: 变频器过负载",
    "13: 马达过负载",
    "14: 通讯外部异常",
    "15: 外部紧急停止",
    "16: 参数锁定",
    "17: 保留",
    "18: 定速过电流",
    "19: 加速过电流",
    "20: 减速过电流",
    "21: 启动瞬间过电流",
    "22: 保留",
    "23: 运转中电压过低",
    "24: 运转/减速过电压",
    "25: 运转中变频器过热",
    "26: 零速停止中",
    "27: 直接启动失效",
    "28: 键盘紧急停止",
    "29: 按键操作错误",
    "30: 参数设定错误",
    "31: 模拟运转错误",
    "32: 通讯中修改参数",
    "33: 通讯失败",
    "34: 参数设定错误",
    "35: 出厂设定错误",
    "36: 保留",
    "37: 保留",
    "38: 参数设定错误拷贝单元拷贝失败",
    "39: 加速过电流",
    "40: 变频器过速度",
};
constexpr const char* kF32[] = {
    "0000: 无操作",
    "1150: 将参数复归为出厂值(50hz,220V/380V 机种)        ",
    "1160: 将参数复归为出厂值(60hz,220V/380V 机种)",
    "1250: 将参数复归为出厂值(50HZ,230V/400V 机种)",
    "1260: 将参数复归为出厂值(60hz,230V/460V 机种) ",
    "1350: 将参数复归为出厂值(50HZ,220V/415V 机种)",
    "1360: 将参数复归为出厂值(60HZ,230V/400V 机种)",
};
constexpr const char* kF33[] = {
    "0:简易参数群组",
    "1:完整参数群组",
};

constexpr OptionList kOptionLists[] = {
    {"00-00", k0000},
    {"00-01", k0001},
    {"00-02", k0002},
    {"00-04", k0004},
    {"00-05", k0005},
    {"00-07", k0007},
    {"00-09", k0009},
    {"00-10", k0010},
    {"03-00", k0300},
    {"03-07", k0307},
    {"03-11", k0311},
    {"03-19", k0319},
    {"04-00", k0400},
    {"04-04", k0404},
    {"04-11", k0411},
    {"05-00", k0500},
    {"06-00", k0600},
    {"06-32", k0632},
    {"06-36", k0636},
    {"07-00", k0700},
    {"07-03", k0703},
    {"07-04", k0704},
    {"07-09", k0709},
    {"07-12", k0712},
    {"08-05", k0805},
    {"08-06", k0806},
    {"08-07", k0807},
    {"08-08", k0808},
    {"08-09", k0809},
    {"08-10", k0810},
    {"08-19", k0819},
    {"09-01", k0901},
    {"09-02", k0902},
    {"09-03", k0903},
    {"09-04", k0904},
    {"09-05", k0905},
    {"09-07", k0907},
    {"10-00", k1000},
    {"10-01", k1001},
    {"10-03", k1003},
    {"10-08", k1008},
    {"10-11", k1011},
    {"11-00", k1100},
    {"11-02", k1102},
    {"11-03", k1103},
    {"11-13", k1113},
    {"11-18", k1118},
    {"12-00", k1200},
    {"12-01", k1201},
    {"12-02", k1202},
    {"12-04", k1204},
    {"13-02", k1302},
    {"13-05", k1305},
    {"13-06", k1306},
    {"13-08", k1308},
    {"F03", kF03},
    {"F04", kF04},
    {"F09", kF09},
    {"F19", kF19},
    {"F22", kF22},
    {"F26", kF26},
    {"F28", kF28},
    {"F31", kF31},
    {"F32", kF32},
    {"F33", kF33},
};
// Parameters that offer the list of another.
constexpr std::pair<const char*, const char*> kSharedLists[] = {
    {"00-03", "00-02"},
    {"00-06", "00-05"},
    {"03-01", "03-00"},
    {"03-02", "03-00"},
    {"03-03", "03-00"},
    {"04-05", "04-04"},
    {"04-14", "04-04"},
    {"04-15", "04-04"},
    {"04-18", "04-04"},
    {"04-19", "04-04"},
    {"06-33", "06-32"},
    {"06-34", "06-32"},
    {"06-35", "06-32"},
    {"06-37", "06-32"},
    {"06-38", "06-32"},
    {"06-39", "06-32"},
    {"F01", "00-01"},
    {"F02", "00-02"},
    {"F12", "03-00"},
    {"F13", "03-00"},
    {"F14", "03-00"},
    {"F15", "03-11"},
};

}  // namespace

std::span<const OptionList> OptionLists() { return kOptionLists; }

int OptionListIndex(const char* code) {
    for (const auto& [user, owner] : kSharedLists)
        if (std::strcmp(user, code) == 0) code = owner;
    for (std::size_t i = 0; i < std::size(kOptionLists); ++i)
        if (std::strcmp(kOptionLists[i].owner, code) == 0) return static_cast<int>(i);
    return -1;
}

}  // namespace quillon
