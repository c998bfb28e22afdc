<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>ProgressLine</name>
    <message numerus="yes">
        <source>attempt %1: %n colour(s), %2 %</source>
        <translation>
            <numerusform>attempt %1: %n colour, %2 %</numerusform>
            <numerusform>attempt %1: %n colours, %2 %</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>recording %1 s, %n frame(s); Ctrl-C stops</source>
        <translation>
            <numerusform>recording %1 s, %n frame; Ctrl-C stops</numerusform>
            <numerusform>recording %1 s, %n frames; Ctrl-C stops</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ResultReport</name>
    <message numerus="yes">
        <source>%n frame(s)</source>
        <translation>
            <numerusform>%n frame</numerusform>
            <numerusform>%n frames</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n colour(s)</source>
        <translation>
            <numerusform>%n colour</numerusform>
            <numerusform>%n colours</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n change(s)</source>
        <translation>
            <numerusform>%n change</numerusform>
            <numerusform>%n changes</numerusform>
        </translation>
    </message>
</context>
</TS>
