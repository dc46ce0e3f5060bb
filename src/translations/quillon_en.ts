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
</context>
</TS>
