<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>CProcessorTree</name>
    <message numerus="yes">
        <source>%1, group, %n processors</source>
        <translation>
            <numerusform>%1, group, %n processor</numerusform>
            <numerusform>%1, group, %n processors</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CRefusedList</name>
    <message numerus="yes">
        <source>%n group(s)</source>
        <translation>
            <numerusform>%n group</numerusform>
            <numerusform>%n groups</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n processor(s)</source>
        <translation>
            <numerusform>%n processor</numerusform>
            <numerusform>%n processors</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n fault(s)</source>
        <translation>
            <numerusform>%n fault</numerusform>
            <numerusform>%n faults</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CountText</name>
    <message numerus="yes">
        <source>%n processor(s) selected</source>
        <translation>
            <numerusform>%n processor selected</numerusform>
            <numerusform>%n processors selected</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n group(s) selected</source>
        <translation>
            <numerusform>%n group selected</numerusform>
            <numerusform>%n groups selected</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n group(s)</source>
        <translation>
            <numerusform>%n group</numerusform>
            <numerusform>%n groups</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n processor(s)</source>
        <translation>
            <numerusform>%n processor</numerusform>
            <numerusform>%n processors</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1, %n of them hidden by the search</source>
        <translation>
            <numerusform>%1, %n of them hidden by the search</numerusform>
            <numerusform>%1, %n of them hidden by the search</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n processor(s) found</source>
        <translation>
            <numerusform>%1 of %n processor found</numerusform>
            <numerusform>%1 of %n processors found</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n processor(s)</source>
        <translation>
            <numerusform>%1 of %n processor</numerusform>
            <numerusform>%1 of %n processors</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StepName</name>
    <message numerus="yes">
        <source>Delete %n processor(s)</source>
        <translation>
            <numerusform>Delete %n processor</numerusform>
            <numerusform>Delete %n processors</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %n group(s)</source>
        <translation>
            <numerusform>Delete %n group</numerusform>
            <numerusform>Delete %n groups</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n group(s)</source>
        <translation>
            <numerusform>%n group</numerusform>
            <numerusform>%n groups</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n processor(s)</source>
        <translation>
            <numerusform>%n processor</numerusform>
            <numerusform>%n processors</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Ungroup %n group(s)</source>
        <translation>
            <numerusform>Ungroup %n group</numerusform>
            <numerusform>Ungroup %n groups</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Group %n processor(s)</source>
        <translation>
            <numerusform>Group %n processor</numerusform>
            <numerusform>Group %n processors</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Add %n simulator(s)</source>
        <translation>
            <numerusform>Add %n simulator</numerusform>
            <numerusform>Add %n simulators</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %n processor(s)</source>
        <translation>
            <numerusform>Move %n processor</numerusform>
            <numerusform>Move %n processors</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete the group “%1” with %n processor(s)</source>
        <translation>
            <numerusform>Delete the group “%1” with %n processor</numerusform>
            <numerusform>Delete the group “%1” with %n processors</numerusform>
        </translation>
    </message>
</context>
</TS>
