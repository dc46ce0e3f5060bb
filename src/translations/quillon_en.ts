<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB" sourcelanguage="zh_CN">
<context>
    <name>TextTable</name>
    <message>
        <source>群组 00: 基本功能</source>
        <translation>Group 00: Basic functions</translation>
    </message>
    <message>
        <source>群组 01: V/F 控制</source>
        <translation>Group 01: V/F control</translation>
    </message>
    <message>
        <source>群组 02: 电机参数</source>
        <translation>Group 02: Motor parameters</translation>
    </message>
    <message>
        <source>群组 03: 数字输入输出</source>
        <translation>Group 03: Digital inputs and outputs</translation>
    </message>
    <message>
        <source>群组 04: 模拟输入输出</source>
        <translation>Group 04: Analog inputs and outputs</translation>
    </message>
    <message>
        <source>群组 05: 多段速</source>
        <translation>Group 05: Multi-step speeds</translation>
    </message>
    <message>
        <source>群组 06: 自动程序运转</source>
        <translation>Group 06: Automatic program run</translation>
    </message>
    <message>
        <source>群组 07: 启动与停止</source>
        <translation>Group 07: Start and stop</translation>
    </message>
    <message>
        <source>群组 08: 保护功能</source>
        <translation>Group 08: Protection</translation>
    </message>
    <message>
        <source>群组 09: 通讯功能</source>
        <translation>Group 09: Communication</translation>
    </message>
    <message>
        <source>群组 10: PID 功能</source>
        <translation>Group 10: PID control</translation>
    </message>
    <message>
        <source>群组 11: 辅助功能</source>
        <translation>Group 11: Auxiliary functions</translation>
    </message>
    <message>
        <source>群组 12: 监视功能</source>
        <translation>Group 12: Monitoring</translation>
    </message>
    <message>
        <source>群组 13: 维护功能</source>
        <translation>Group 13: Maintenance</translation>
    </message>
    <message>
        <source>简易参数群组</source>
        <translation>Simplified parameter group</translation>
    </message>
</context>
<context>
    <name>Command</name>
    <message>
        <source>设置...(&amp;R)</source>
        <translation>Set Passwo&amp;rd...</translation>
    </message>
    <message>
        <source>解除...(&amp;D)</source>
        <translation>&amp;Delete Password...</translation>
    </message>
</context>
<context>
    <name>Caption</name>
    <message>
        <source>参数比较选择</source>
        <translation>Compare: Choose Parameters</translation>
    </message>
    <message>
        <source>比较</source>
        <translation>Compare</translation>
    </message>
    <message>
        <source>未写入马达参数</source>
        <translation>Motor Parameters Not Written</translation>
    </message>
    <message>
        <source>通讯功能参数修改</source>
        <translation>Change Communication Parameters</translation>
    </message>
    <message>
        <source>分配 IP</source>
        <translation>Assign IP</translation>
    </message>
    <message>
        <source>连接</source>
        <translation>Connect</translation>
    </message>
    <message>
        <source>设置 IP</source>
        <translation>Set IP</translation>
    </message>
    <message>
        <source>通讯端口</source>
        <translation>Communication port</translation>
    </message>
    <message>
        <source>IP设置</source>
        <translation>IP Settings</translation>
    </message>
    <message>
        <source>其他NX20</source>
        <translation>Other NX20</translation>
    </message>
    <message>
        <source>端口:</source>
        <translation>Port:</translation>
    </message>
    <message>
        <source>波特率</source>
        <translation>Baud rate</translation>
    </message>
    <message>
        <source>数据位</source>
        <translation>Data bits</translation>
    </message>
    <message>
        <source>7位</source>
        <translation>7 bits</translation>
    </message>
    <message>
        <source>8位</source>
        <translation>8 bits</translation>
    </message>
    <message>
        <source>校验位</source>
        <translation>Parity</translation>
    </message>
    <message>
        <source>偶</source>
        <translation>Even</translation>
    </message>
    <message>
        <source>奇</source>
        <translation>Odd</translation>
    </message>
    <message>
        <source>无</source>
        <translation>None</translation>
    </message>
    <message>
        <source>停止位</source>
        <translation>Stop bits</translation>
    </message>
    <message>
        <source>1位</source>
        <translation>1 bit</translation>
    </message>
    <message>
        <source>2位</source>
        <translation>2 bits</translation>
    </message>
    <message>
        <source>站别</source>
        <translation>Stations</translation>
    </message>
    <message>
        <source>站号:</source>
        <translation>Station:</translation>
    </message>
    <message>
        <source>(单台或指定范围, 例如: 1,3,5-12)</source>
        <translation>(one or a range, e.g. 1,3,5-12)</translation>
    </message>
    <message>
        <source>断开</source>
        <translation>Disconnect</translation>
    </message>
    <message>
        <source>关闭</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>IP地址:</source>
        <translation>IP address:</translation>
    </message>
    <message>
        <source>设备名称:</source>
        <translation>Device name:</translation>
    </message>
    <message>
        <source>比较内容选择</source>
        <translation>What to compare</translation>
    </message>
    <message>
        <source>确定</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>保存</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>打印</source>
        <translation>Print</translation>
    </message>
    <message>
        <source>出厂值和编辑值比较</source>
        <translation>Default against set value</translation>
    </message>
    <message>
        <source>出厂值和读取值比较</source>
        <translation>Default against read value</translation>
    </message>
    <message>
        <source>编辑值和读取值比较</source>
        <translation>Set value against read value</translation>
    </message>
</context>
<context>
    <name>Options</name>
    <message>
        <source>0:常开接点</source>
        <translation>0:Normally open</translation>
    </message>
    <message>
        <source>1:常闭接点</source>
        <translation>1:Normally closed</translation>
    </message>
    <message>
        <source>0: 正转</source>
        <translation>0: Forward</translation>
    </message>
    <message>
        <source>1: 反转</source>
        <translation>1: Reverse</translation>
    </message>
    <message>
        <source>0: 按键面板控制</source>
        <translation>0: Keypad</translation>
    </message>
    <message>
        <source>1: 外部端子控制</source>
        <translation>1: External terminals</translation>
    </message>
    <message>
        <source>2: 通讯控制</source>
        <translation>2: Communication</translation>
    </message>
    <message>
        <source>0: 正转/停止-反转/停止</source>
        <translation>0: Forward/stop - reverse/stop</translation>
    </message>
    <message>
        <source>1: 运转/停止-正转/反转</source>
        <translation>1: Run/stop - forward/reverse</translation>
    </message>
    <message>
        <source>2: 3线制运转/停止</source>
        <translation>2: 3-wire run/stop</translation>
    </message>
    <message>
        <source>0: 按键面板上下键</source>
        <translation>0: Keypad up/down keys</translation>
    </message>
    <message>
        <source>1: 按键面板旋钮</source>
        <translation>1: Keypad knob</translation>
    </message>
    <message>
        <source>2: 外部端子AVI</source>
        <translation>2: External terminal AVI</translation>
    </message>
    <message>
        <source>3: 外部端子ACI</source>
        <translation>3: External terminal ACI</translation>
    </message>
    <message>
        <source>4: 外部端子UP/DOWN</source>
        <translation>4: External terminals UP/DOWN</translation>
    </message>
    <message>
        <source>5: 通讯控制</source>
        <translation>5: Communication</translation>
    </message>
    <message>
        <source>0: 主频率源与副频率源切换</source>
        <translation>0: Switch between main and alternative source</translation>
    </message>
    <message>
        <source>1: 主频率源+副频率源</source>
        <translation>1: Main source + alternative source</translation>
    </message>
    <message>
        <source>0: 不记忆</source>
        <translation>0: Not kept</translation>
    </message>
    <message>
        <source>1: 记忆</source>
        <translation>1: Kept</translation>
    </message>
    <message>
        <source>0: 依目前频率命令</source>
        <translation>0: Present frequency command</translation>
    </message>
    <message>
        <source>1: 频率命令归零</source>
        <translation>1: Frequency command to zero</translation>
    </message>
    <message>
        <source>2: 依参数00-11设定值</source>
        <translation>2: Set value of 00-11</translation>
    </message>
    <message>
        <source>0: 正转/停止</source>
        <translation>0: Forward/stop</translation>
    </message>
    <message>
        <source>1: 反转/停止</source>
        <translation>1: Reverse/stop</translation>
    </message>
    <message>
        <source>2: 多段速设定位元0(5-02)</source>
        <translation>2: Multi-step speed bit 0 (5-02)</translation>
    </message>
    <message>
        <source>3: 多段速设定位元1(5-03)</source>
        <translation>3: Multi-step speed bit 1 (5-03)</translation>
    </message>
    <message>
        <source>4: 多段速设定位元2(5-05)</source>
        <translation>4: Multi-step speed bit 2 (5-05)</translation>
    </message>
    <message>
        <source>5: 预留</source>
        <translation>5: Reserved</translation>
    </message>
    <message>
        <source>6: 点动正转指令</source>
        <translation>6: Jog forward</translation>
    </message>
    <message>
        <source>7: 点动反转指令</source>
        <translation>7: Jog reverse</translation>
    </message>
    <message>
        <source>8: Up增频率指令</source>
        <translation>8: Up: raise frequency</translation>
    </message>
    <message>
        <source>9: Down减频率指令</source>
        <translation>9: Down: lower frequency</translation>
    </message>
    <message>
        <source>10: 加/减速时间2</source>
        <translation>10: Acceleration/deceleration time 2</translation>
    </message>
    <message>
        <source>11: 加/减速禁止</source>
        <translation>11: Acceleration/deceleration inhibited</translation>
    </message>
    <message>
        <source>12: 主/副运转命令切换</source>
        <translation>12: Main/alternative run command switch</translation>
    </message>
    <message>
        <source>13: 主/副频率命令切换</source>
        <translation>13: Main/alternative frequency command switch</translation>
    </message>
    <message>
        <source>14: 紧急停止(减速至零停止)</source>
        <translation>14: Emergency stop (decelerate to zero)</translation>
    </message>
    <message>
        <source>15: 遮断停止(自由运转停止)</source>
        <translation>15: Base block (coast to stop)</translation>
    </message>
    <message>
        <source>16: PID 功能禁止</source>
        <translation>16: PID disabled</translation>
    </message>
    <message>
        <source>17: 故障复归(Reset)</source>
        <translation>17: Fault reset</translation>
    </message>
    <message>
        <source>18: 自动程序运转</source>
        <translation>18: Automatic program run</translation>
    </message>
    <message>
        <source>0: 设定的频率将被保持</source>
        <translation>0: The set frequency is kept</translation>
    </message>
    <message>
        <source>1: 设定的频率将被归至0Hz</source>
        <translation>1: The set frequency returns to 0 Hz</translation>
    </message>
    <message>
        <source>2: 设定的频率将被保持,停机时增/减频率功能有效</source>
        <translation>2: The set frequency is kept; up/down works while stopped</translation>
    </message>
    <message>
        <source>0: 运转中</source>
        <translation>0: Running</translation>
    </message>
    <message>
        <source>1: 故障指示</source>
        <translation>1: Fault</translation>
    </message>
    <message>
        <source>2: 设定频率到达</source>
        <translation>2: Set frequency reached</translation>
    </message>
    <message>
        <source>3: 任意频率到达(03-13±03-14)</source>
        <translation>3: Any frequency reached (03-13±03-14)</translation>
    </message>
    <message>
        <source>4: 频率检出1(&gt; 03-13)</source>
        <translation>4: Frequency detection 1 (&gt; 03-13)</translation>
    </message>
    <message>
        <source>5: 频率检出2(&lt; 03-13)</source>
        <translation>5: Frequency detection 2 (&lt; 03-13)</translation>
    </message>
    <message>
        <source>6: 自动再启动 </source>
        <translation>6: Automatic restart</translation>
    </message>
    <message>
        <source>7: 瞬停动作</source>
        <translation>7: Momentary power loss</translation>
    </message>
    <message>
        <source>8: 紧急停止</source>
        <translation>8: Emergency stop</translation>
    </message>
    <message>
        <source>9: 遮断停止</source>
        <translation>9: Base block</translation>
    </message>
    <message>
        <source>10: 电机过载保护(OL1)</source>
        <translation>10: Motor overload (OL1)</translation>
    </message>
    <message>
        <source>11: 变频器过载保护(OL2)</source>
        <translation>11: Inverter overload (OL2)</translation>
    </message>
    <message>
        <source>12: 预留</source>
        <translation>12: Reserved</translation>
    </message>
    <message>
        <source>13: 电流到达 </source>
        <translation>13: Current reached</translation>
    </message>
    <message>
        <source>14: 机械煞车控制功能</source>
        <translation>14: Mechanical brake control</translation>
    </message>
    <message>
        <source>15: PID 反馈断线检出</source>
        <translation>15: PID feedback loss</translation>
    </message>
    <message>
        <source>16: 保留</source>
        <translation>16: Reserved</translation>
    </message>
    <message>
        <source>17: 保留</source>
        <translation>17: Reserved</translation>
    </message>
    <message>
        <source>18: 保留</source>
        <translation>18: Reserved</translation>
    </message>
    <message>
        <source>19: 同步S1</source>
        <translation>19: Synchronous S1</translation>
    </message>
    <message>
        <source>20: 同步S2</source>
        <translation>20: Synchronous S2</translation>
    </message>
    <message>
        <source>21: 同步S3</source>
        <translation>21: Synchronous S3</translation>
    </message>
    <message>
        <source>22: 同步S4</source>
        <translation>22: Synchronous S4</translation>
    </message>
    <message>
        <source>0: A接点(常开)</source>
        <translation>0: A contact (normally open)</translation>
    </message>
    <message>
        <source>1: B接点(常闭)</source>
        <translation>1: B contact (normally closed)</translation>
    </message>
    <message>
        <source>0: 正向</source>
        <translation>0: Positive</translation>
    </message>
    <message>
        <source>1: 负向</source>
        <translation>1: Negative</translation>
    </message>
    <message>
        <source>0: 输出频率</source>
        <translation>0: Output frequency</translation>
    </message>
    <message>
        <source>1: 频率设定</source>
        <translation>1: Frequency setting</translation>
    </message>
    <message>
        <source>2: 输出电压</source>
        <translation>2: Output voltage</translation>
    </message>
    <message>
        <source>3: 直流电压</source>
        <translation>3: DC bus voltage</translation>
    </message>
    <message>
        <source>4: 输出电流</source>
        <translation>4: Output current</translation>
    </message>
    <message>
        <source>0:无效</source>
        <translation>0:Disabled</translation>
    </message>
    <message>
        <source>1:减速停止</source>
        <translation>1:Decelerate to stop</translation>
    </message>
    <message>
        <source>2:自由停止</source>
        <translation>2:Coast to stop</translation>
    </message>
    <message>
        <source>3:持续运转(到达警告准位持续运转，到达保护准位后停止)</source>
        <translation>3:Keep running (past the warning level; stop at the protection level)</translation>
    </message>
    <message>
        <source>0:电机过载(OL1)保护0</source>
        <translation>0:Motor overload (OL1) protection 0</translation>
    </message>
    <message>
        <source>1:电机过载(OL1)保护1</source>
        <translation>1:Motor overload (OL1) protection 1</translation>
    </message>
    <message>
        <source>2:电机过载(OL1)保护2</source>
        <translation>2:Motor overload (OL1) protection 2</translation>
    </message>
    <message>
        <source>0: 再生回避功能无效 </source>
        <translation>0: Regeneration avoidance off</translation>
    </message>
    <message>
        <source>1: 再生回避功能始终有效 </source>
        <translation>1: Regeneration avoidance always on</translation>
    </message>
    <message>
        <source>2: 仅在恒速运行时，再生回避功能有效</source>
        <translation>2: Regeneration avoidance at constant speed only</translation>
    </message>
    <message>
        <source>0: 运转指令不由操作器提供时,停止键有效</source>
        <translation>0: Stop key works when the run command isn't from the keypad</translation>
    </message>
    <message>
        <source>1: 运转指令不由操作器提供时,停止键无效</source>
        <translation>1: Stop key ignored when the run command isn't from the keypad</translation>
    </message>
    <message>
        <source>0: 以整数显示反馈值(xxx) </source>
        <translation>0: Feedback as a whole number (xxx)</translation>
    </message>
    <message>
        <source>1: 以小数点1 位显示反馈值(xx.x) </source>
        <translation>1: Feedback with 1 decimal (xx.x)</translation>
    </message>
    <message>
        <source>2: 以小数点2 位显示反馈值(x.xx) </source>
        <translation>2: Feedback with 2 decimals (x.xx)</translation>
    </message>
    <message>
        <source>0: xxx--(无单位)</source>
        <translation>0: xxx-- (no unit)</translation>
    </message>
    <message>
        <source>1: xxxpb(压力) </source>
        <translation>1: xxxpb (pressure)</translation>
    </message>
    <message>
        <source>2: xxxfl(流量) </source>
        <translation>2: xxxfl (flow)</translation>
    </message>
    <message>
        <source>0: 显示变频器输出频率 </source>
        <translation>0: Inverter output frequency</translation>
    </message>
    <message>
        <source>1: 以整数显示线速度(xxxxx) </source>
        <translation>1: Line speed as a whole number (xxxxx)</translation>
    </message>
    <message>
        <source>2: 以小数点1 位显示线速度(xxxx.x) </source>
        <translation>2: Line speed with 1 decimal (xxxx.x)</translation>
    </message>
    <message>
        <source>3: 以小数点2 位显示线速度(xxx.xx) </source>
        <translation>3: Line speed with 2 decimals (xxx.xx)</translation>
    </message>
    <message>
        <source>4: 以小数点3 位显示线速度(xx.xxx) </source>
        <translation>4: Line speed with 3 decimals (xx.xxx)</translation>
    </message>
    <message>
        <source>3: 有自保机能2线制启停</source>
        <translation>3: 2-wire start/stop with self-holding</translation>
    </message>
    <message>
        <source>0: 按键面板上下键给定</source>
        <translation>0: Keypad up/down keys</translation>
    </message>
    <message>
        <source>1: 保留</source>
        <translation>1: Reserved</translation>
    </message>
    <message>
        <source>2: 外部端子AI给定</source>
        <translation>2: External terminal AI</translation>
    </message>
    <message>
        <source>3: 保留</source>
        <translation>3: Reserved</translation>
    </message>
    <message>
        <source>4: 外部端子UP/DOWN给定</source>
        <translation>4: External terminals UP/DOWN</translation>
    </message>
    <message>
        <source>5: 通讯控制给定</source>
        <translation>5: Communication</translation>
    </message>
    <message>
        <source>6: PID给定</source>
        <translation>6: PID</translation>
    </message>
    <message>
        <source>0: 瞬停再启动无效</source>
        <translation>0: No restart after momentary power loss</translation>
    </message>
    <message>
        <source>1: 瞬停再启动有效</source>
        <translation>1: Restart after momentary power loss</translation>
    </message>
    <message>
        <source>0:外部运转命令有效时,送电后直接启动</source>
        <translation>0:Start at power-on when an external run command stands</translation>
    </message>
    <message>
        <source>1:外部运转命令有效时,送电后不可直接启动</source>
        <translation>1:No start at power-on when an external run command stands</translation>
    </message>
    <message>
        <source>0: 减速停止</source>
        <translation>0: Decelerate to stop</translation>
    </message>
    <message>
        <source>1:自由停止</source>
        <translation>1:Coast to stop</translation>
    </message>
    <message>
        <source>0: 反转指令有效  </source>
        <translation>0: Reverse allowed</translation>
    </message>
    <message>
        <source>1: 反转指令无效 </source>
        <translation>1: Reverse refused</translation>
    </message>
    <message>
        <source>0: 变频器正常</source>
        <translation>0: Inverter normal</translation>
    </message>
    <message>
        <source>1: 变频器过热</source>
        <translation>1: Inverter overheat</translation>
    </message>
    <message>
        <source>2: 停机中过电流</source>
        <translation>2: Overcurrent while stopped</translation>
    </message>
    <message>
        <source>3: 停机中电压过低</source>
        <translation>3: Undervoltage while stopped</translation>
    </message>
    <message>
        <source>4: 停机中电压过高</source>
        <translation>4: Overvoltage while stopped</translation>
    </message>
    <message>
        <source>5: 保留</source>
        <translation>5: Reserved</translation>
    </message>
    <message>
        <source>6: 外部遮断</source>
        <translation>6: External base block</translation>
    </message>
    <message>
        <source>7: CPU受干扰</source>
        <translation>7: CPU disturbed</translation>
    </message>
    <message>
        <source>8: PID回授信号丧失</source>
        <translation>8: PID feedback lost</translation>
    </message>
    <message>
        <source>9: EEPROM异常</source>
        <translation>9: EEPROM fault</translation>
    </message>
    <message>
        <source>10: 自动参数量测失败</source>
        <translation>10: Auto-tuning failed</translation>
    </message>
    <message>
        <source>11: 过转矩检出</source>
        <translation>11: Overtorque detected</translation>
    </message>
    <message>
        <source>12: 变频器过负载</source>
        <translation>12: Inverter overload</translation>
    </message>
    <message>
        <source>13: 马达过负载</source>
        <translation>13: Motor overload</translation>
    </message>
    <message>
        <source>14: 通讯外部异常</source>
        <translation>14: External communication fault</translation>
    </message>
    <message>
        <source>15: 外部紧急停止</source>
        <translation>15: External emergency stop</translation>
    </message>
    <message>
        <source>16: 参数锁定</source>
        <translation>16: Parameters locked</translation>
    </message>
    <message>
        <source>18: 定速过电流</source>
        <translation>18: Overcurrent at constant speed</translation>
    </message>
    <message>
        <source>19: 加速过电流</source>
        <translation>19: Overcurrent while accelerating</translation>
    </message>
    <message>
        <source>20: 减速过电流</source>
        <translation>20: Overcurrent while decelerating</translation>
    </message>
    <message>
        <source>21: 启动瞬间过电流</source>
        <translation>21: Overcurrent at start</translation>
    </message>
    <message>
        <source>22: 保留</source>
        <translation>22: Reserved</translation>
    </message>
    <message>
        <source>23: 运转中电压过低</source>
        <translation>23: Undervoltage while running</translation>
    </message>
    <message>
        <source>24: 运转/减速过电压</source>
        <translation>24: Overvoltage while running/decelerating</translation>
    </message>
    <message>
        <source>25: 运转中变频器过热</source>
        <translation>25: Inverter overheat while running</translation>
    </message>
    <message>
        <source>26: 零速停止中</source>
        <translation>26: Stopped at zero speed</translation>
    </message>
    <message>
        <source>27: 直接启动失效</source>
        <translation>27: Direct start refused</translation>
    </message>
    <message>
        <source>28: 键盘紧急停止</source>
        <translation>28: Keypad emergency stop</translation>
    </message>
    <message>
        <source>29: 按键操作错误</source>
        <translation>29: Key operation error</translation>
    </message>
    <message>
        <source>30: 参数设定错误</source>
        <translation>30: Parameter setting error</translation>
    </message>
    <message>
        <source>31: 模拟运转错误</source>
        <translation>31: Analog run error</translation>
    </message>
    <message>
        <source>32: 通讯中修改参数</source>
        <translation>32: Parameter changed over communication</translation>
    </message>
    <message>
        <source>33: 通讯失败</source>
        <translation>33: Communication failure</translation>
    </message>
    <message>
        <source>34: 参数设定错误</source>
        <translation>34: Parameter setting error</translation>
    </message>
    <message>
        <source>35: 出厂设定错误</source>
        <translation>35: Factory setting error</translation>
    </message>
    <message>
        <source>36: 保留</source>
        <translation>36: Reserved</translation>
    </message>
    <message>
        <source>37: 保留</source>
        <translation>37: Reserved</translation>
    </message>
    <message>
        <source>38: 参数设定错误拷贝单元拷贝失败</source>
        <translation>38: Parameter copy unit failed</translation>
    </message>
    <message>
        <source>39: 加速过电流</source>
        <translation>39: Overcurrent while accelerating</translation>
    </message>
    <message>
        <source>40: 变频器过速度</source>
        <translation>40: Inverter overspeed</translation>
    </message>
    <message>
        <source>0000: 无操作</source>
        <translation>0000: No action</translation>
    </message>
    <message>
        <source>1150: 将参数复归为出厂值(50hz,220V/380V 机种)        </source>
        <translation>1150: Factory values (50 Hz, 220 V/380 V models)</translation>
    </message>
    <message>
        <source>1160: 将参数复归为出厂值(60hz,220V/380V 机种)</source>
        <translation>1160: Factory values (60 Hz, 220 V/380 V models)</translation>
    </message>
    <message>
        <source>1250: 将参数复归为出厂值(50HZ,230V/400V 机种)</source>
        <translation>1250: Factory values (50 Hz, 230 V/400 V models)</translation>
    </message>
    <message>
        <source>1260: 将参数复归为出厂值(60hz,230V/460V 机种) </source>
        <translation>1260: Factory values (60 Hz, 230 V/460 V models)</translation>
    </message>
    <message>
        <source>1350: 将参数复归为出厂值(50HZ,220V/415V 机种)</source>
        <translation>1350: Factory values (50 Hz, 220 V/415 V models)</translation>
    </message>
    <message>
        <source>1360: 将参数复归为出厂值(60HZ,230V/400V 机种)</source>
        <translation>1360: Factory values (60 Hz, 230 V/400 V models)</translation>
    </message>
    <message>
        <source>0:简易参数群组</source>
        <translation>0:Simplified parameter group</translation>
    </message>
    <message>
        <source>1:完整参数群组</source>
        <translation>1:Complete parameter groups</translation>
    </message>
</context>
<context>
    <name>Panel</name>
    <message>
        <source>变频器运行状态</source>
        <translation>Inverter Run Status</translation>
    </message>
    <message>
        <source>运行状态</source>
        <translation>Run state</translation>
    </message>
    <message>
        <source>运行数据</source>
        <translation>Run data</translation>
    </message>
    <message>
        <source>故障</source>
        <translation>Fault</translation>
    </message>
    <message>
        <source>故障说明</source>
        <translation>Fault description</translation>
    </message>
    <message>
        <source>准备</source>
        <translation>Ready</translation>
    </message>
    <message>
        <source>异常</source>
        <translation>Fault</translation>
    </message>
    <message>
        <source>停止</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>运行</source>
        <translation>Run</translation>
    </message>
    <message>
        <source>正转</source>
        <translation>Forward</translation>
    </message>
    <message>
        <source>反转</source>
        <translation>Reverse</translation>
    </message>
    <message>
        <source>故障代码:</source>
        <translation>Fault code:</translation>
    </message>
    <message>
        <source>设定频率</source>
        <translation>Set frequency</translation>
    </message>
    <message>
        <source>输出频率</source>
        <translation>Output frequency</translation>
    </message>
    <message>
        <source>输出电流</source>
        <translation>Output current</translation>
    </message>
    <message>
        <source>输出电压</source>
        <translation>Output voltage</translation>
    </message>
    <message>
        <source>直流电压</source>
        <translation>DC bus voltage</translation>
    </message>
    <message>
        <source>变频器端子状态</source>
        <translation>Inverter Terminal Status</translation>
    </message>
    <message>
        <source>端子状态</source>
        <translation>Terminal state</translation>
    </message>
    <message>
        <source>继电器</source>
        <translation>Relay</translation>
    </message>
    <message>
        <source>数字输入</source>
        <translation>Digital inputs</translation>
    </message>
</context>
<context>
    <name>CommParam</name>
    <message>
        <source>09-01 变频器通讯站别</source>
        <translation>09-01 Drive station number</translation>
    </message>
    <message>
        <source>09-02 波特率设定</source>
        <translation>09-02 Baud rate</translation>
    </message>
    <message>
        <source>09-03 停止位选择</source>
        <translation>09-03 Stop bits</translation>
    </message>
    <message>
        <source>09-04 奇偶位选择</source>
        <translation>09-04 Parity</translation>
    </message>
    <message>
        <source>0:1停止位</source>
        <translation>0:1 stop bit</translation>
    </message>
    <message>
        <source>1:2停止位</source>
        <translation>1:2 stop bits</translation>
    </message>
    <message>
        <source>0:无奇偶位</source>
        <translation>0:No parity</translation>
    </message>
    <message>
        <source>1:偶位</source>
        <translation>1:Even parity</translation>
    </message>
    <message>
        <source>2:奇位</source>
        <translation>2:Odd parity</translation>
    </message>
</context>
</TS>
