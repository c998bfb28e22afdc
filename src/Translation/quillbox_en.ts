<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Doctor</name>
    <message numerus="yes">
        <source>%n recording(s) cut off before there was a clip</source>
        <translation>
            <numerusform>%n recording cut off before there was a clip</numerusform>
            <numerusform>%n recordings cut off before there was a clip</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FrameReadError</name>
    <message numerus="yes">
        <source>is cut off after %n whole frame(s); get the file again, or --keep-going</source>
        <translation>
            <numerusform>is cut off after %n whole frame; get the file again, or --keep-going</numerusform>
            <numerusform>is cut off after %n whole frames; get the file again, or --keep-going</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>InputReader</name>
    <message numerus="yes">
        <source>%1; the %n frame(s) before that are in the clip</source>
        <translation>
            <numerusform>%1; the %n frame before that is in the clip</numerusform>
            <numerusform>%1; the %n frames before that are in the clip</numerusform>
        </translation>
    </message>
</context>
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
    <message numerus="yes">
        <source>palette %1 of %2: %n colour(s), %3 %</source>
        <translation>
            <numerusform>palette %1 of %2: %n colour, %3 %</numerusform>
            <numerusform>palette %1 of %2: %n colours, %3 %</numerusform>
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
        <source>; %n picture(s), %1 kept: at most %2 a second, and changes of less than 1 % merge (--precise keeps them)</source>
        <translation>
            <numerusform>; %n picture, %1 kept: at most %2 a second, and changes of less than 1 % merge (--precise keeps them)</numerusform>
            <numerusform>; %n pictures, %1 kept: at most %2 a second, and changes of less than 1 % merge (--precise keeps them)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: changes of less than 1 % merge (--precise keeps them)</source>
        <translation>
            <numerusform>; %n picture, %1 kept: changes of less than 1 % merge (--precise keeps them)</numerusform>
            <numerusform>; %n pictures, %1 kept: changes of less than 1 % merge (--precise keeps them)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) left out</source>
        <translation>
            <numerusform>%n change left out</numerusform>
            <numerusform>%n changes left out</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: at most %2 a second (--max-fps)</source>
        <translation>
            <numerusform>; %n picture, %1 kept: at most %2 a second (--max-fps)</numerusform>
            <numerusform>; %n pictures, %1 kept: at most %2 a second (--max-fps)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StatusReport</name>
    <message numerus="yes">
        <source>%n recording(s) cut off; quillbox recover makes clips</source>
        <translation>
            <numerusform>%n recording cut off; quillbox recover makes a clip of it</numerusform>
            <numerusform>%n recordings cut off; quillbox recover makes clips of them</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>quillbox::ClipOffers</name>
    <message numerus="yes">
        <source>%1 of %2 · shows %3 of %Ln recorded picture(s)</source>
        <translation>
            <numerusform>%1 of %2 · shows %3 of %Ln recorded picture</numerusform>
            <numerusform>%1 of %2 · shows %3 of %Ln recorded pictures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> · shows %1 of %Ln recorded picture(s)</source>
        <translation>
            <numerusform> · shows %1 of %Ln recorded picture</numerusform>
            <numerusform> · shows %1 of %Ln recorded pictures</numerusform>
        </translation>
    </message>
</context>
</TS>
