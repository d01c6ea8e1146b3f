<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>CAddProcessorDlg</name>
    <message>
        <source>Add a processor</source>
        <translation>添加处理器</translation>
    </message>
</context>
<context>
    <name>CAddSimulatorDlg</name>
    <message>
        <source>Add simulators</source>
        <translation>添加模拟器</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>数量</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>1G port</source>
        <translation>1G 端口</translation>
    </message>
    <message>
        <source>5G port</source>
        <translation>5G 端口</translation>
    </message>
    <message>
        <source>10G fiber</source>
        <translation>10G 光纤</translation>
    </message>
</context>
<context>
    <name>CBaseDialog</name>
    <message>
        <source>&amp;OK</source>
        <translation>确定(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>取消(&amp;C)</translation>
    </message>
</context>
<context>
    <name>CBusyIndicator</name>
    <message>
        <source>Ready</source>
        <translation>就绪</translation>
    </message>
    <message>
        <source>%1 – since %2 (%3 s)</source>
        <translation>%1 – 自 %2 起(%3 秒)</translation>
    </message>
    <message>
        <source>Busy</source>
        <translation>忙碌</translation>
    </message>
    <message>
        <source>Scanning the network</source>
        <translation>正在扫描网络</translation>
    </message>
    <message>
        <source>Adding the processor at %1</source>
        <translation>正在添加处理器 %1</translation>
    </message>
    <message>
        <source>Deleting %1</source>
        <translation>正在删除 %1</translation>
    </message>
    <message>
        <source>Importing %1</source>
        <translation>正在导入 %1</translation>
    </message>
</context>
<context>
    <name>CDialogTitleBar</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>CFinalSave</name>
    <message>
        <source>List not saved</source>
        <translation>列表未保存</translation>
    </message>
    <message>
        <source>The list could not be saved at its place.</source>
        <translation>列表无法保存到原位置。</translation>
    </message>
    <message>
        <source>&amp;Save elsewhere…</source>
        <translation>保存到其他位置(&amp;S)…</translation>
    </message>
    <message>
        <source>&amp;Quit without saving</source>
        <translation>不保存并退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>取消(&amp;C)</translation>
    </message>
    <message>
        <source>Save the list</source>
        <translation>保存列表</translation>
    </message>
</context>
<context>
    <name>CHostMenu</name>
    <message>
        <source>&amp;Project</source>
        <translation>项目(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Open project…</source>
        <translation>打开项目(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Close project</source>
        <translation>关闭项目(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;List</source>
        <translation>列表(&amp;L)</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>全选(&amp;A)</translation>
    </message>
    <message>
        <source>Chief-&amp;Member mode</source>
        <translation>主从模式(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Lock the list</source>
        <translation>锁定列表(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Block refresh</source>
        <translation>禁止刷新(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Journal</source>
        <translation>日志(&amp;J)</translation>
    </message>
    <message>
        <source>L&amp;anguage</source>
        <translation>语言(&amp;A)</translation>
    </message>
    <message>
        <source>Open project</source>
        <translation>打开项目</translation>
    </message>
    <message>
        <source>Name of the project:</source>
        <translation>项目名称：</translation>
    </message>
</context>
<context>
    <name>CHostStatus</name>
    <message>
        <source>No project</source>
        <translation>没有项目</translation>
    </message>
    <message>
        <source>Project %1</source>
        <translation>项目 %1</translation>
    </message>
    <message>
        <source>Chief-Member mode</source>
        <translation>主从模式</translation>
    </message>
    <message>
        <source>List locked</source>
        <translation>列表已锁定</translation>
    </message>
    <message>
        <source>Refresh blocked</source>
        <translation>刷新已禁止</translation>
    </message>
    <message>
        <source>List not read: %1</source>
        <translation>列表未读取：%1</translation>
    </message>
    <message>
        <source>List not saved: %1</source>
        <translation>列表未保存：%1</translation>
    </message>
</context>
<context>
    <name>CIPEdit</name>
    <message>
        <source>Part %1 of 4 of the address</source>
        <translation>地址的第 %1 段，共 4 段</translation>
    </message>
    <message>
        <source>The address is incomplete.</source>
        <translation>地址不完整。</translation>
    </message>
    <message>
        <source>This address is in use or reserved.</source>
        <translation>此地址已被使用或保留。</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>IP 地址</translation>
    </message>
    <message>
        <source>Each part is a number from 0 to 255.</source>
        <translation>每一段都是 0 到 255 的数字。</translation>
    </message>
</context>
<context>
    <name>CJournalDock</name>
    <message>
        <source>Journal</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>Show reading calls</source>
        <translation>显示读取调用</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>CJournalModel</name>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Thread</source>
        <translation>线程</translation>
    </message>
    <message>
        <source>Object</source>
        <translation>对象</translation>
    </message>
    <message>
        <source>Call or message</source>
        <translation>调用或消息</translation>
    </message>
</context>
<context>
    <name>CKeyWays</name>
    <message>
        <source>&amp;Search the list</source>
        <translation>搜索列表(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Next part of the window</source>
        <translation>窗口的下一部分(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Previous part of the window</source>
        <translation>窗口的上一部分(&amp;P)</translation>
    </message>
</context>
<context>
    <name>CMainWindow</name>
    <message>
        <source>Quitting as soon as the running job has ended…</source>
        <translation>正在运行的任务结束后将退出…</translation>
    </message>
</context>
<context>
    <name>CMessageBox</name>
    <message>
        <source>&amp;OK</source>
        <translation>确定(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>是(&amp;Y)</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>否(&amp;N)</translation>
    </message>
</context>
<context>
    <name>CProcessorTree</name>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>编组</translation>
    </message>
    <message>
        <source>Ungroup</source>
        <translation>取消编组</translation>
    </message>
    <message>
        <source>Move to group</source>
        <translation>移动到组</translation>
    </message>
    <message>
        <source>Remove from group</source>
        <translation>从组中移除</translation>
    </message>
    <message>
        <source>Delete processors</source>
        <translation>删除处理器</translation>
    </message>
    <message>
        <source>Do you want to delete all the selected processors?</source>
        <translation>要删除所有选中的处理器吗？</translation>
    </message>
    <message>
        <source>Delete groups and processors</source>
        <translation>删除组和处理器</translation>
    </message>
    <message>
        <source>Do you want to delete all the selected groups and processors?</source>
        <translation>要删除所有选中的组和处理器吗？</translation>
    </message>
    <message>
        <source>Delete group and processors</source>
        <translation>删除组及其处理器</translation>
    </message>
    <message>
        <source>Delete group only</source>
        <translation>仅删除组</translation>
    </message>
    <message>
        <source>Group %1</source>
        <translation>组 %1</translation>
    </message>
    <message>
        <source>Chief-Member mode enabled. This processor has been set as Chief.</source>
        <translation>主从模式已启用。此处理器已设为主控。</translation>
    </message>
    <message>
        <source>Processor redundancy enabled. This processor has been set as Primary.</source>
        <translation>处理器冗余已启用。此处理器已设为主用。</translation>
    </message>
    <message>
        <source>Processor redundancy enabled. This processor has been set as Backup.</source>
        <translation>处理器冗余已启用。此处理器已设为备用。</translation>
    </message>
    <message>
        <source>, </source>
        <translation>，</translation>
    </message>
    <message>
        <source>Primary</source>
        <translation>主用</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>备用</translation>
    </message>
    <message>
        <source>project %1</source>
        <translation>项目 %1</translation>
    </message>
    <message>
        <source>%1, group, 1 processor</source>
        <translation>%1，组，1 台处理器</translation>
    </message>
    <message numerus="yes">
        <source>%1, group, %n processors</source>
        <translation>
            <numerusform>%1，组，%n 台处理器</numerusform>
        </translation>
    </message>
    <message>
        <source>has a Chief</source>
        <translation>有主控</translation>
    </message>
    <message>
        <source>Chief %1</source>
        <translation>主控 %1</translation>
    </message>
    <message>
        <source>online</source>
        <translation>在线</translation>
    </message>
    <message>
        <source>offline</source>
        <translation>离线</translation>
    </message>
    <message>
        <source>Chief</source>
        <translation>主控</translation>
    </message>
    <message>
        <source>group %1</source>
        <translation>组 %1</translation>
    </message>
    <message>
        <source>Discovered processors</source>
        <translation>已发现的处理器</translation>
    </message>
    <message>
        <source>Simulators</source>
        <translation>模拟器</translation>
    </message>
    <message>
        <source>Name of %1</source>
        <translation>%1 的名称</translation>
    </message>
</context>
<context>
    <name>CProcessorTreeDelegate</name>
    <message>
        <source>IP: %1</source>
        <translation>IP：%1</translation>
    </message>
    <message>
        <source>Type: </source>
        <translation>类型：</translation>
    </message>
    <message>
        <source>Project: </source>
        <translation>项目：</translation>
    </message>
    <message>
        <source>UID: </source>
        <translation>UID：</translation>
    </message>
    <message>
        <source>Type: --</source>
        <translation>类型：--</translation>
    </message>
    <message>
        <source>Project: --</source>
        <translation>项目：--</translation>
    </message>
    <message>
        <source>UID: --</source>
        <translation>UID：--</translation>
    </message>
    <message>
        <source>All processors(%1)</source>
        <translation>全部处理器(%1)</translation>
    </message>
</context>
<context>
    <name>CProcessorTreeToolBar</name>
    <message>
        <source>Add simulators</source>
        <translation>添加模拟器</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>菜单</translation>
    </message>
    <message>
        <source>Add group</source>
        <translation>添加组</translation>
    </message>
    <message>
        <source>Add a processor</source>
        <translation>添加处理器</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>导入</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出</translation>
    </message>
</context>
<context>
    <name>CProcessorTreeView</name>
    <message>
        <source>Group %1</source>
        <translation>组 %1</translation>
    </message>
    <message>
        <source>Import...</source>
        <translation>导入…</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>保存…</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出</translation>
    </message>
    <message>
        <source>Export sucessfully.</source>
        <translation>导出成功。</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>导入</translation>
    </message>
    <message>
        <source>Import sucessfully.</source>
        <translation>导入成功。</translation>
    </message>
    <message>
        <source>Overwrite confirmation</source>
        <translation>确认覆盖</translation>
    </message>
    <message>
        <source>This operation will overwrite the processor list.
Continue?</source>
        <translation>此操作将覆盖处理器列表。
要继续吗？</translation>
    </message>
    <message>
        <source>Cannot import file</source>
        <translation>无法导入文件</translation>
    </message>
    <message>
        <source>The currently imported file is invalid.</source>
        <translation>导入的文件无效。</translation>
    </message>
    <message>
        <source>Overwrite failed.</source>
        <translation>覆盖失败。</translation>
    </message>
    <message>
        <source>Copy failed.</source>
        <translation>复制失败。</translation>
    </message>
    <message>
        <source>The number of processors involved exceeds the limit.</source>
        <translation>处理器数量超出上限。</translation>
    </message>
    <message>
        <source>Discovered</source>
        <translation>已发现</translation>
    </message>
    <message>
        <source>Simulator</source>
        <translation>模拟器</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>Close search box</source>
        <translation>关闭搜索框</translation>
    </message>
    <message>
        <source>Panes</source>
        <translation>列表</translation>
    </message>
</context>
<context>
    <name>CSearchBox</name>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
</context>
<context>
    <name>CThemeMenu</name>
    <message>
        <source>&amp;Theme</source>
        <translation>主题(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;High contrast</source>
        <translation>高对比度(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>深色(&amp;D)</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
</context>
</TS>
