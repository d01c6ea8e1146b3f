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
    <message>
        <source>Deleting %1 with its processors</source>
        <translation>正在删除 %1 及其处理器</translation>
    </message>
    <message>
        <source>%1, since %2 (%3 s)</source>
        <translation>%1，自 %2 起(%3 秒)</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1/%2</translation>
    </message>
    <message>
        <source>%1 done</source>
        <translation>已完成 %1</translation>
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
    <name>CEarlierLists</name>
    <message>
        <source>Earlier lists</source>
        <translation>以前的列表</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>正在读取…</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>日期和时间</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>组</translation>
    </message>
    <message>
        <source>Processors</source>
        <translation>处理器</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>There is no earlier list.</source>
        <translation>没有以前的列表。</translation>
    </message>
    <message>
        <source>Restoring…</source>
        <translation>正在恢复…</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>恢复(&amp;R)</translation>
    </message>
    <message>
        <source>It cannot be read as a list.</source>
        <translation>无法作为列表读取。</translation>
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
    <name>CGuardField</name>
    <message>
        <source>Held up %1×, last for %2 ms</source>
        <translation>卡顿 %1 次，最近一次 %2 毫秒</translation>
    </message>
    <message>
        <source>Held up %1×, last for %2 ms by %3</source>
        <translation>卡顿 %1 次，最近一次 %2 毫秒，因 %3</translation>
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
    <name>CJournalField</name>
    <message>
        <source>Journal not written: %1</source>
        <translation>日志未写入：%1</translation>
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
    <name>CRefusedList</name>
    <message>
        <source>Refused list</source>
        <translation>被拒绝的列表</translation>
    </message>
    <message>
        <source>Nothing of it can be read.</source>
        <translation>其中没有可读取的内容。</translation>
    </message>
    <message>
        <source>The list was refused at the start:</source>
        <translation>启动时拒绝了此列表：</translation>
    </message>
    <message>
        <source>What can be read: %1, %2; %3.</source>
        <translation>可读取：%1，%2；%3。</translation>
    </message>
    <message numerus="yes">
        <source>%n group(s)</source>
        <translation>
            <numerusform>%n 个组</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n processor(s)</source>
        <translation>
            <numerusform>%n 台处理器</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n fault(s)</source>
        <translation>
            <numerusform>%n 处错误</numerusform>
        </translation>
    </message>
    <message>
        <source>Use this list?</source>
        <translation>要使用此列表吗？</translation>
    </message>
    <message>
        <source>The journal says why.</source>
        <translation>原因见日志。</translation>
    </message>
    <message>
        <source>The refused file is kept in the same folder.</source>
        <translation>被拒绝的文件将保留在同一文件夹中。</translation>
    </message>
</context>
<context>
    <name>CReportAction</name>
    <message>
        <source>Save &amp;report…</source>
        <translation>保存报告(&amp;R)…</translation>
    </message>
</context>
<context>
    <name>CReportSaver</name>
    <message>
        <source>Save report</source>
        <translation>保存报告</translation>
    </message>
    <message>
        <source>Reports (*.tar.gz)</source>
        <translation>报告 (*.tar.gz)</translation>
    </message>
    <message>
        <source>Report saved: %1</source>
        <translation>报告已保存：%1</translation>
    </message>
    <message>
        <source>The report was not saved.
%1: %2</source>
        <translation>报告未保存。
%1：%2</translation>
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
    <name>CUndoMenu</name>
    <message>
        <source>Chief of its &amp;group</source>
        <translation>所在组的主控(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Earlier lists…</source>
        <translation>以前的列表(&amp;E)…</translation>
    </message>
    <message>
        <source>Use this list &amp;nevertheless…</source>
        <translation>仍然使用此列表(&amp;N)…</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>撤销(&amp;U)：%1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>重做(&amp;R)：%1</translation>
    </message>
    <message>
        <source>Redo of “%1”</source>
        <translation>重做“%1”</translation>
    </message>
    <message>
        <source>Undo of “%1”</source>
        <translation>撤销“%1”</translation>
    </message>
    <message>
        <source>“%1” cannot be taken back: %2.</source>
        <translation>无法撤销“%1”：%2。</translation>
    </message>
    <message>
        <source>Leave this step out, so that the ones before it can be taken back?</source>
        <translation>要跳过此步骤，以便撤销更早的步骤吗？</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
</context>
<context>
    <name>CountText</name>
    <message numerus="yes">
        <source>%n processor(s) selected</source>
        <translation>
            <numerusform>已选 %n 台处理器</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n group(s) selected</source>
        <translation>
            <numerusform>已选 %n 个组</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 and %2 selected</source>
        <translation>已选 %1和 %2</translation>
    </message>
    <message numerus="yes">
        <source>%n group(s)</source>
        <translation>
            <numerusform>%n 个组</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n processor(s)</source>
        <translation>
            <numerusform>%n 台处理器</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, hidden by the search</source>
        <translation>%1，被搜索隐藏</translation>
    </message>
    <message numerus="yes">
        <source>%1, %n of them hidden by the search</source>
        <translation>
            <numerusform>%1，其中 %n 项被搜索隐藏</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n processor(s) found</source>
        <translation>
            <numerusform>找到 %1/%n 台处理器</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n processor(s)</source>
        <translation>
            <numerusform>%1/%n 台处理器</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 and %2 found</source>
        <translation>找到 %1和 %2</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
</context>
<context>
    <name>RefusalText</name>
    <message>
        <source>Add the processor %1</source>
        <translation>添加处理器 %1</translation>
    </message>
    <message>
        <source>Add simulators</source>
        <translation>添加模拟器</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>删除 %1</translation>
    </message>
    <message>
        <source>Ungroup %1</source>
        <translation>取消编组 %1</translation>
    </message>
    <message>
        <source>Rename to %1</source>
        <translation>重命名为 %1</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>移动 %1</translation>
    </message>
    <message>
        <source>Chief of %1</source>
        <translation>%1 的主控</translation>
    </message>
    <message>
        <source>Import %1</source>
        <translation>导入 %1</translation>
    </message>
    <message>
        <source>Use the refused list</source>
        <translation>使用被拒绝的列表</translation>
    </message>
    <message>
        <source>Export %1</source>
        <translation>导出 %1</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>the list is locked</source>
        <translation>列表已锁定</translation>
    </message>
    <message>
        <source>refresh is blocked</source>
        <translation>刷新已禁止</translation>
    </message>
    <message>
        <source>a job is still running</source>
        <translation>仍有任务在进行</translation>
    </message>
    <message>
        <source>the control library cannot do that</source>
        <translation>控制库不支持此操作</translation>
    </message>
    <message>
        <source>the name is empty</source>
        <translation>名称为空</translation>
    </message>
    <message>
        <source>the name holds line ends or control characters</source>
        <translation>名称含有换行符或控制字符</translation>
    </message>
    <message>
        <source>the name begins or ends with a blank</source>
        <translation>名称以空格开头或结尾</translation>
    </message>
    <message>
        <source>nothing of the name can be seen</source>
        <translation>名称没有可见的字符</translation>
    </message>
    <message>
        <source>the name turns the direction of the text around</source>
        <translation>名称含有反转文字方向的字符</translation>
    </message>
    <message>
        <source>a name may not hold any of %1</source>
        <translation>名称不得含有 %1 中的任何字符</translation>
    </message>
    <message>
        <source>the name is longer than %1 bytes</source>
        <translation>名称超过 %1 个字节</translation>
    </message>
    <message>
        <source>it is not in the list any more</source>
        <translation>它已不在列表中</translation>
    </message>
    <message>
        <source>the group is not in the list any more</source>
        <translation>该组已不在列表中</translation>
    </message>
    <message>
        <source>the processor is not in the group</source>
        <translation>该处理器不在该组中</translation>
    </message>
    <message>
        <source>%1 runs the open project</source>
        <translation>%1 正在运行当前打开的项目</translation>
    </message>
    <message>
        <source>the list has a node of that id</source>
        <translation>列表中已有相同标识的条目</translation>
    </message>
    <message>
        <source>the group carries more numbers than a list file takes</source>
        <translation>该组的编号多于列表文件所能容纳的数量</translation>
    </message>
    <message>
        <source>the list has all the groups that it can have</source>
        <translation>列表无法再容纳更多组</translation>
    </message>
    <message>
        <source>the list has all the processors that it can have</source>
        <translation>列表无法再容纳更多处理器</translation>
    </message>
    <message>
        <source>it is in the list already</source>
        <translation>它已在列表中</translation>
    </message>
    <message>
        <source>there is no simulator of that type or output</source>
        <translation>没有该类型或输出的模拟器</translation>
    </message>
    <message>
        <source>more than two simulators cannot exist</source>
        <translation>模拟器不能超过两个</translation>
    </message>
    <message>
        <source>the address is reserved</source>
        <translation>该地址为保留地址</translation>
    </message>
    <message>
        <source>a processor of the list has the address</source>
        <translation>列表中已有处理器使用该地址</translation>
    </message>
    <message>
        <source>nothing answers there</source>
        <translation>该地址没有应答</translation>
    </message>
    <message>
        <source>the file does not exist any more</source>
        <translation>文件已不存在</translation>
    </message>
    <message>
        <source>the file is not the one that was refused</source>
        <translation>该文件已不是当时被拒绝的文件</translation>
    </message>
    <message>
        <source>no list was refused</source>
        <translation>没有被拒绝的列表</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>Add the group “%1”</source>
        <translation>添加组“%1”</translation>
    </message>
    <message>
        <source>Delete the group “%1”</source>
        <translation>删除组“%1”</translation>
    </message>
    <message>
        <source>Restore an earlier list</source>
        <translation>恢复以前的列表</translation>
    </message>
    <message>
        <source>the file is no good list</source>
        <translation>文件不是有效的列表</translation>
    </message>
    <message>
        <source>the file holds more than the list takes</source>
        <translation>文件内容超出列表的容量</translation>
    </message>
    <message>
        <source>the file was not written</source>
        <translation>文件未写入</translation>
    </message>
    <message>
        <source>the file was not replaced</source>
        <translation>文件未替换</translation>
    </message>
    <message>
        <source>the list before was not kept</source>
        <translation>先前的列表未能保留</translation>
    </message>
    <message>
        <source>another program has the file open</source>
        <translation>另一个程序已打开该文件</translation>
    </message>
    <message>
        <source>nothing of the file can be read</source>
        <translation>文件中没有可读取的内容</translation>
    </message>
</context>
<context>
    <name>StepName</name>
    <message>
        <source>Delete %1</source>
        <translation>删除 %1</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n processor(s)</source>
        <translation>
            <numerusform>删除 %n 台处理器</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %n group(s)</source>
        <translation>
            <numerusform>删除 %n 个组</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete %1 and %2</source>
        <translation>删除 %1和 %2</translation>
    </message>
    <message numerus="yes">
        <source>%n group(s)</source>
        <translation>
            <numerusform>%n 个组</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n processor(s)</source>
        <translation>
            <numerusform>%n 台处理器</numerusform>
        </translation>
    </message>
    <message>
        <source>Ungroup %1</source>
        <translation>取消编组 %1</translation>
    </message>
    <message numerus="yes">
        <source>Ungroup %n group(s)</source>
        <translation>
            <numerusform>取消 %n 个组的编组</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Group %n processor(s)</source>
        <translation>
            <numerusform>将 %n 台处理器编组</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Add %n simulator(s)</source>
        <translation>
            <numerusform>添加 %n 个模拟器</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %n processor(s)</source>
        <translation>
            <numerusform>移动 %n 台处理器</numerusform>
        </translation>
    </message>
    <message>
        <source>Add the processor %1</source>
        <translation>添加处理器 %1</translation>
    </message>
    <message>
        <source>Rename to %1</source>
        <translation>重命名为 %1</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>移动 %1</translation>
    </message>
    <message>
        <source>Chief of %1</source>
        <translation>%1 的主控</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>导入</translation>
    </message>
    <message>
        <source>Use the refused list</source>
        <translation>使用被拒绝的列表</translation>
    </message>
    <message>
        <source>Delete the group “%1”</source>
        <translation>删除组“%1”</translation>
    </message>
    <message numerus="yes">
        <source>Delete the group “%1” with %n processor(s)</source>
        <translation>
            <numerusform>删除组“%1”及其 %n 台处理器</numerusform>
        </translation>
    </message>
    <message>
        <source>Add the group “%1”</source>
        <translation>添加组“%1”</translation>
    </message>
    <message>
        <source>Restore an earlier list</source>
        <translation>恢复以前的列表</translation>
    </message>
</context>
</TS>
