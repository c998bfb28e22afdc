<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>BackEnd</name>
    <message>
        <source>%1 is &quot;%2&quot;, which is none of %3</source>
        <translation>%1 ist „%2“, also keins von %3</translation>
    </message>
</context>
<context>
    <name>CaptureError</name>
    <message>
        <source>Pixels of the clip can&apos;t be read back: they are damaged</source>
        <translation>Pixel des Clips lassen sich nicht zurücklesen: Sie sind beschädigt</translation>
    </message>
    <message>
        <source>Screen capture is switched off by QUILLBOX_CAPTURE_BACKEND</source>
        <translation>Die Bildschirmaufnahme ist durch QUILLBOX_CAPTURE_BACKEND abgeschaltet</translation>
    </message>
    <message>
        <source>A long clip needs a file in %1: %2</source>
        <translation>Ein langer Clip braucht eine Datei in %1: %2</translation>
    </message>
    <message>
        <source>The disk is nearly full</source>
        <translation>Der Datenträger ist fast voll</translation>
    </message>
    <message>
        <source>The file of a long clip can&apos;t grow: %1</source>
        <translation>Die Datei eines langen Clips kann nicht wachsen: %1</translation>
    </message>
    <message>
        <source>Pixels of the clip can&apos;t be read back: %1</source>
        <translation>Pixel des Clips lassen sich nicht zurücklesen: %1</translation>
    </message>
    <message>
        <source>The region lies outside the main display, which is %1×%2</source>
        <translation>Der Bereich liegt außerhalb des Hauptbildschirms mit %1×%2</translation>
    </message>
    <message>
        <source>Screen capture needs a free file descriptor</source>
        <translation>Die Bildschirmaufnahme braucht einen freien Dateideskriptor</translation>
    </message>
    <message>
        <source>Screen capture failed: %1</source>
        <translation>Die Bildschirmaufnahme ist fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Screen capture was stopped before it began</source>
        <translation>Die Bildschirmaufnahme wurde beendet, bevor sie begann</translation>
    </message>
    <message>
        <source>The X11 display refuses to show its pixels</source>
        <translation>Der X11-Bildschirm gibt seine Pixel nicht heraus</translation>
    </message>
    <message>
        <source>PipeWire, which carries the screen&apos;s pictures, can&apos;t be reached</source>
        <translation>PipeWire, das die Bilder des Bildschirms überträgt, ist nicht erreichbar</translation>
    </message>
    <message>
        <source>PipeWire, which carries the screen&apos;s pictures, went away</source>
        <translation>PipeWire, das die Bilder des Bildschirms überträgt, hat sich beendet</translation>
    </message>
    <message>
        <source>PipeWire does not deliver the screen&apos;s pictures: %1</source>
        <translation>PipeWire liefert die Bilder des Bildschirms nicht: %1</translation>
    </message>
    <message>
        <source>unknown error</source>
        <translation>unbekannter Fehler</translation>
    </message>
    <message>
        <source>The desktop no longer delivers the screen&apos;s pictures</source>
        <translation>Die Arbeitsumgebung liefert die Bilder des Bildschirms nicht mehr</translation>
    </message>
    <message>
        <source>The screen&apos;s pictures come in a format that was not asked for</source>
        <translation>Die Bilder des Bildschirms kommen in einem nicht angeforderten Format</translation>
    </message>
    <message>
        <source>PipeWire refuses to deliver the screen&apos;s pictures</source>
        <translation>PipeWire weigert sich, die Bilder des Bildschirms zu liefern</translation>
    </message>
    <message>
        <source>The desktop delivers no picture of the screen</source>
        <translation>Die Arbeitsumgebung liefert kein Bild des Bildschirms</translation>
    </message>
    <message>
        <source>The region lies outside the display, which is %1×%2</source>
        <translation>Der Bereich liegt außerhalb des Bildschirms mit %1×%2</translation>
    </message>
    <message>
        <source>Screens of Wayland desktops are recorded through the desktop portal, and none answers: install xdg-desktop-portal and its back end for this desktop</source>
        <translation>Auf Wayland wird der Bildschirm über das Desktop-Portal aufgenommen, und keines antwortet: Installieren Sie xdg-desktop-portal und sein Backend für diese Arbeitsumgebung</translation>
    </message>
    <message>
        <source>The desktop portal does not offer the screen: install PipeWire and the portal&apos;s back end for this desktop</source>
        <translation>Das Desktop-Portal bietet den Bildschirm nicht an: Installieren Sie PipeWire und das Backend des Portals für diese Arbeitsumgebung</translation>
    </message>
    <message>
        <source>The desktop portal, which shows us the screen, went away</source>
        <translation>Das Desktop-Portal, das den Bildschirm zeigt, hat sich beendet</translation>
    </message>
    <message>
        <source>The desktop has ended the recording of its screen</source>
        <translation>Die Arbeitsumgebung hat die Aufnahme ihres Bildschirms beendet</translation>
    </message>
    <message>
        <source>The desktop portal&apos;s answer can&apos;t be understood</source>
        <translation>Die Antwort des Desktop-Portals ist unverständlich</translation>
    </message>
    <message>
        <source>The desktop portal refused: %1</source>
        <translation>Das Desktop-Portal hat abgelehnt: %1</translation>
    </message>
    <message>
        <source>Screens of Wayland desktops are recorded through the desktop portal, and there is no session bus to reach it</source>
        <translation>Auf Wayland wird der Bildschirm über das Desktop-Portal aufgenommen, und es gibt keinen Sitzungsbus, der zu ihm führt</translation>
    </message>
    <message>
        <source>The permission to record the screen was not given</source>
        <translation>Die Erlaubnis, den Bildschirm aufzunehmen, wurde nicht erteilt</translation>
    </message>
    <message>
        <source>The desktop portal could not start to show us the screen</source>
        <translation>Das Desktop-Portal konnte nicht beginnen, den Bildschirm zu zeigen</translation>
    </message>
    <message>
        <source>What was chosen is not one monitor: record again and choose a single monitor, not all of them</source>
        <translation>Gewählt wurde mehr als ein Monitor: Nehmen Sie noch einmal auf, und wählen Sie einen einzelnen Monitor, nicht alle zusammen</translation>
    </message>
    <message>
        <source>The monitor that is recorded was switched off or unplugged</source>
        <translation>Der aufgenommene Bildschirm wurde ausgeschaltet oder abgesteckt</translation>
    </message>
</context>
<context>
    <name>Clipboard</name>
    <message>
        <source>QUILLBOX_CLIPBOARD_BACKEND is &quot;%1&quot;</source>
        <translation>QUILLBOX_CLIPBOARD_BACKEND ist „%1“</translation>
    </message>
    <message>
        <source>There is no display</source>
        <translation>Es gibt keinen Bildschirm</translation>
    </message>
    <message>
        <source>The desktop is an X11 display</source>
        <translation>Die Arbeitsumgebung ist ein X11-Bildschirm</translation>
    </message>
    <message>
        <source>The toolkit shows its windows on &quot;%1&quot;</source>
        <translation>Das Toolkit zeigt seine Fenster auf „%1“</translation>
    </message>
    <message>
        <source>The compositor offers %1</source>
        <translation>Der Compositor bietet %1</translation>
    </message>
    <message>
        <source>The compositor lets only a window that has the keyboard set the clipboard</source>
        <translation>Der Compositor lässt nur ein Fenster mit Tastaturfokus in die Zwischenablage schreiben</translation>
    </message>
</context>
<context>
    <name>ControlCommand</name>
    <message>
        <source>the answer can&apos;t be written to standard output</source>
        <translation>die Antwort lässt sich nicht auf die Standardausgabe schreiben</translation>
    </message>
    <message>
        <source>a clip is being made already; quillbox stop ends a recording</source>
        <translation>es entsteht bereits ein Clip; quillbox stop beendet eine Aufnahme</translation>
    </message>
    <message>
        <source>Quillbox is not running; start it with quillbox</source>
        <translation>Quillbox läuft nicht; starten Sie es mit quillbox</translation>
    </message>
</context>
<context>
    <name>CutOffRecordings</name>
    <message>
        <source>Another program has this recording, or it is gone</source>
        <translation>Ein anderes Programm hat diese Aufnahme, oder sie ist nicht mehr da</translation>
    </message>
    <message>
        <source>This recording is damaged; nothing can be made of it</source>
        <translation>Diese Aufnahme ist beschädigt; aus ihr lässt sich nichts machen</translation>
    </message>
</context>
<context>
    <name>DesktopApplication</name>
    <message>
        <source>%1. quillbox record and encode work from a terminal</source>
        <translation>%1. quillbox record und encode laufen auch in einem Terminal</translation>
    </message>
    <message>
        <source>QT_QPA_PLATFORM is &quot;%1&quot;, which is none of %2; unset it</source>
        <translation>QT_QPA_PLATFORM ist „%1“, keines von %2; entfernen Sie es</translation>
    </message>
</context>
<context>
    <name>DisplayError</name>
    <message>
        <source>DISPLAY is not set, so there is no X11 display to record</source>
        <translation>DISPLAY ist nicht gesetzt, es gibt also keinen X11-Bildschirm zum Aufnehmen</translation>
    </message>
    <message>
        <source>The X11 display %1 can&apos;t be connected to</source>
        <translation>Zum X11-Bildschirm %1 lässt sich keine Verbindung herstellen</translation>
    </message>
    <message>
        <source>The screen&apos;s colours can&apos;t be read (depth %1); only true-colour screens can be recorded</source>
        <translation>Die Farben des Bildschirms sind nicht lesbar (Farbtiefe %1); nur Echtfarbbildschirme lassen sich aufnehmen</translation>
    </message>
    <message>
        <source>The connection to the X11 display was lost</source>
        <translation>Die Verbindung zum X11-Bildschirm ist abgebrochen</translation>
    </message>
</context>
<context>
    <name>Doctor</name>
    <message>
        <source>no display</source>
        <translation>kein Bildschirm</translation>
    </message>
    <message>
        <source>the report can&apos;t be written to standard output</source>
        <translation>der Bericht lässt sich nicht auf die Standardausgabe schreiben</translation>
    </message>
    <message>
        <source>What this desktop has for Quillbox</source>
        <translation>Was diese Arbeitsumgebung Quillbox bietet</translation>
    </message>
    <message>
        <source>What is missing comes, on Debian and Ubuntu, with</source>
        <translation>Was fehlt, kommt auf Debian und Ubuntu mit</translation>
    </message>
    <message>
        <source>The screen can be recorded.</source>
        <translation>Der Bildschirm kann aufgenommen werden.</translation>
    </message>
    <message>
        <source>The screen can&apos;t be recorded.</source>
        <translation>Der Bildschirm kann nicht aufgenommen werden.</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>Infobereich</translation>
    </message>
    <message>
        <source>a StatusNotifierItem watcher with a host</source>
        <translation>eine StatusNotifierItem-Überwachung mit Anzeige</translation>
    </message>
    <message>
        <source>a StatusNotifierItem watcher without a host</source>
        <translation>eine StatusNotifierItem-Überwachung ohne Anzeige</translation>
    </message>
    <message>
        <source>a tray of the X server&apos;s kind (XEmbed)</source>
        <translation>ein Infobereich nach Art des X-Servers (XEmbed)</translation>
    </message>
    <message>
        <source>a StatusNotifierItem</source>
        <translation>ein StatusNotifierItem</translation>
    </message>
    <message>
        <source>This desktop shows no tray icons</source>
        <translation>Diese Arbeitsumgebung zeigt keine Symbole im Infobereich</translation>
    </message>
    <message>
        <source>quillbox show opens the panel</source>
        <translation>quillbox show öffnet das Fenster</translation>
    </message>
    <message>
        <source>bind quillbox toggle to a key in the desktop&apos;s settings</source>
        <translation>legen Sie quillbox toggle in den Einstellungen der Arbeitsumgebung auf eine Taste</translation>
    </message>
    <message>
        <source>Hotkey</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>no other program holds it</source>
        <translation>kein anderes Programm belegt es</translation>
    </message>
    <message>
        <source>it is held, as Quillbox runs</source>
        <translation>es ist belegt, da Quillbox läuft</translation>
    </message>
    <message>
        <source>There is no X server that has the keys</source>
        <translation>Es gibt keinen X-Server, der die Tasten hat</translation>
    </message>
    <message>
        <source>the portal&apos;s GlobalShortcuts, version %1</source>
        <translation>GlobalShortcuts des Portals, Version %1</translation>
    </message>
    <message>
        <source>There is no session bus</source>
        <translation>Es gibt keinen Sitzungsbus</translation>
    </message>
    <message>
        <source>There is no desktop portal</source>
        <translation>Es gibt kein Desktop-Portal</translation>
    </message>
    <message>
        <source>The portal has no global shortcuts on this desktop</source>
        <translation>Das Portal kennt in dieser Arbeitsumgebung keine globalen Tastenkürzel</translation>
    </message>
    <message>
        <source>The desktop portal does not answer</source>
        <translation>Das Desktop-Portal antwortet nicht</translation>
    </message>
    <message>
        <source>You refused it when the desktop asked</source>
        <translation>Sie haben es abgelehnt, als die Arbeitsumgebung fragte</translation>
    </message>
    <message>
        <source>to be asked again, remove %1 and start Quillbox anew; or bind quillbox toggle to a key in the desktop&apos;s settings</source>
        <translation>um erneut gefragt zu werden, löschen Sie %1 und starten Sie Quillbox neu; oder legen Sie quillbox toggle in den Einstellungen der Arbeitsumgebung auf eine Taste</translation>
    </message>
    <message>
        <source>The hotkey is switched off by QUILLBOX_HOTKEY_BACKEND</source>
        <translation>Das Tastenkürzel ist durch QUILLBOX_HOTKEY_BACKEND abgeschaltet</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Updates</translation>
    </message>
    <message>
        <source>There is no system bus</source>
        <translation>Es gibt keinen Systembus</translation>
    </message>
    <message>
        <source>There is no PackageKit</source>
        <translation>PackageKit ist nicht vorhanden</translation>
    </message>
    <message>
        <source>update Quillbox the way it was installed</source>
        <translation>aktualisieren Sie Quillbox so, wie es installiert wurde</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Bildschirm</translation>
    </message>
    <message>
        <source>the X server %1</source>
        <translation>der X-Server %1</translation>
    </message>
    <message>
        <source>extensions %1</source>
        <translation>Erweiterungen %1</translation>
    </message>
    <message>
        <source>the server lacks %1: recording is slower, has no pointer, or knows no monitors</source>
        <translation>dem Server fehlt %1: Die Aufnahme ist langsamer, zeigt keinen Mauszeiger oder kennt keine Monitore</translation>
    </message>
    <message>
        <source>start it inside a desktop session; quillbox encode needs none</source>
        <translation>starten Sie es in einer Desktop-Sitzung; quillbox encode braucht keine</translation>
    </message>
    <message>
        <source>monitors</source>
        <translation>Monitore</translation>
    </message>
    <message>
        <source>windows</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>virtual monitors</source>
        <translation>virtuelle Monitore</translation>
    </message>
    <message>
        <source>the portal&apos;s ScreenCast, version %1: %2</source>
        <translation>ScreenCast des Portals, Version %1: %2</translation>
    </message>
    <message>
        <source>a desktop portal</source>
        <translation>ein Desktop-Portal</translation>
    </message>
    <message>
        <source>the desktop portal and PipeWire</source>
        <translation>das Desktop-Portal und PipeWire</translation>
    </message>
    <message>
        <source>the desktop will ask which monitor to show</source>
        <translation>die Arbeitsumgebung wird fragen, welchen Monitor sie zeigen soll</translation>
    </message>
    <message>
        <source>the desktop may remember which monitor to show</source>
        <translation>die Arbeitsumgebung weiß vielleicht noch, welchen Monitor sie zeigen soll</translation>
    </message>
    <message>
        <source>systemctl --user restart xdg-desktop-portal may help</source>
        <translation>systemctl --user restart xdg-desktop-portal hilft vielleicht</translation>
    </message>
    <message>
        <source>The desktop portal shows the screen through PipeWire, which does not run</source>
        <translation>Das Desktop-Portal zeigt den Bildschirm über PipeWire, das nicht läuft</translation>
    </message>
    <message>
        <source>log in again when it is installed: the portal looks for its pieces only once</source>
        <translation>melden Sie sich nach der Installation neu an: Das Portal sucht seine Teile nur einmal</translation>
    </message>
    <message>
        <source>The X server does not answer</source>
        <translation>Der X-Server antwortet nicht</translation>
    </message>
    <message>
        <source>a clipboard manager, which keeps clips when Quillbox ends</source>
        <translation>eine Zwischenablagenverwaltung, die Clips behält, wenn Quillbox endet</translation>
    </message>
    <message>
        <source>no clipboard manager: a clip stays while Quillbox runs</source>
        <translation>keine Zwischenablagenverwaltung: Ein Clip bleibt, solange Quillbox läuft</translation>
    </message>
    <message>
        <source>the X server&apos;s selection</source>
        <translation>die Auswahl des X-Servers</translation>
    </message>
    <message>
        <source>There is no display</source>
        <translation>Es gibt keinen Bildschirm</translation>
    </message>
    <message>
        <source>the compositor&apos;s data control</source>
        <translation>die Datensteuerung (data control) des Compositors</translation>
    </message>
    <message>
        <source>the toolkit</source>
        <translation>das Toolkit</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
    <message>
        <source>The display does not answer</source>
        <translation>Der Bildschirm antwortet nicht</translation>
    </message>
    <message>
        <source>File manager</source>
        <translation>Dateimanager</translation>
    </message>
    <message>
        <source>a file manager on the bus (FileManager1)</source>
        <translation>ein Dateimanager auf dem Bus (FileManager1)</translation>
    </message>
    <message>
        <source>the portal&apos;s OpenURI, version %1</source>
        <translation>OpenURI des Portals, Version %1</translation>
    </message>
    <message>
        <source>the file manager, which selects the clip</source>
        <translation>der Dateimanager, der den Clip auswählt</translation>
    </message>
    <message>
        <source>the desktop portal, which opens the folder</source>
        <translation>das Desktop-Portal, das den Ordner öffnet</translation>
    </message>
    <message>
        <source>xdg-open, which opens the folder</source>
        <translation>xdg-open, das den Ordner öffnet</translation>
    </message>
    <message>
        <source>Nothing here opens folders</source>
        <translation>Nichts hier öffnet Ordner</translation>
    </message>
    <message>
        <source>Quillbox was not installed as a package</source>
        <translation>Quillbox wurde nicht als Paket installiert</translation>
    </message>
    <message>
        <source>Updates are switched off by QUILLBOX_UPDATE_BACKEND</source>
        <translation>Aktualisierungen sind durch QUILLBOX_UPDATE_BACKEND abgeschaltet</translation>
    </message>
    <message>
        <source>to choose another monitor, remove %1</source>
        <translation>um einen anderen Bildschirm zu wählen, %1 löschen</translation>
    </message>
    <message>
        <source>the desktop portal; the desktop&apos;s settings tell the keys</source>
        <translation>das Desktop-Portal; die Tasten stehen in den Einstellungen der Arbeitsumgebung</translation>
    </message>
    <message>
        <source>the desktop portal: %1</source>
        <translation>das Desktop-Portal: %1</translation>
    </message>
    <message>
        <source>start Quillbox and look again: only then the desktop tells what it has bound</source>
        <translation>starten Sie Quillbox und sehen Sie noch einmal nach: erst dann sagt die Arbeitsumgebung, welche Tasten sie vergeben hat</translation>
    </message>
    <message>
        <source>The desktop has bound no key for Quillbox</source>
        <translation>Die Arbeitsumgebung hat Quillbox keine Taste gegeben</translation>
    </message>
    <message>
        <source>PipeWire, which brings the screen&apos;s pictures, does not answer</source>
        <translation>PipeWire, das die Bilder des Bildschirms bringt, antwortet nicht</translation>
    </message>
    <message>
        <source>systemctl --user restart pipewire wireplumber may help</source>
        <translation>systemctl --user restart pipewire wireplumber hilft vielleicht</translation>
    </message>
    <message>
        <source>PipeWire has no session manager, which connects its programs</source>
        <translation>PipeWire hat keine Sitzungsverwaltung, die seine Programme verbindet</translation>
    </message>
    <message>
        <source>systemctl --user start wireplumber starts one that is installed</source>
        <translation>systemctl --user start wireplumber startet eine, die installiert ist</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>%1, but not %2</source>
        <translation>%1, aber nicht %2</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>Aufnahmen</translation>
    </message>
    <message numerus="yes">
        <source>%n recording(s) cut off before there was a clip</source>
        <translation>
            <numerusform>%n Aufnahme abgebrochen, bevor es einen Clip gab</numerusform>
            <numerusform>%n Aufnahmen abgebrochen, bevor es einen Clip gab</numerusform>
        </translation>
    </message>
    <message>
        <source>quillbox recover makes clips of them, quillbox recover --discard removes them</source>
        <translation>quillbox recover macht Clips daraus, quillbox recover --discard entfernt sie</translation>
    </message>
    <message>
        <source>%1 of the X server</source>
        <translation>%1 beim X-Server</translation>
    </message>
    <message>
        <source>Another program holds %1</source>
        <translation>Ein anderes Programm belegt %1</translation>
    </message>
    <message>
        <source>the desktop portal, once it has been asked for %1</source>
        <translation>das Desktop-Portal, sobald es um %1 gebeten wurde</translation>
    </message>
</context>
<context>
    <name>ErrorReport</name>
    <message>
        <source>there is not enough memory for these frames; use fewer or smaller ones</source>
        <translation>für diese Einzelbilder reicht der Speicher nicht; verwenden Sie weniger oder kleinere</translation>
    </message>
    <message>
        <source>%1 is saved, but not what there is to say about it: %2</source>
        <translation>%1 ist gespeichert, aber nicht, was dazu zu sagen ist: %2</translation>
    </message>
    <message>
        <source>warning: %1</source>
        <translation>Warnung: %1</translation>
    </message>
    <message>
        <source>this process may not open enough files; raise the limit with ulimit -n 64</source>
        <translation>dieser Prozess darf nicht genug Dateien öffnen; heben Sie die Grenze mit ulimit -n 64 an</translation>
    </message>
</context>
<context>
    <name>ExportPreset</name>
    <message>
        <source>Slack</source>
        <translation>Slack</translation>
    </message>
    <message>
        <source>Tiny GIF under 2 MB</source>
        <translation>Winziges GIF unter 2 MB</translation>
    </message>
    <message>
        <source>GitHub</source>
        <translation>GitHub</translation>
    </message>
    <message>
        <source>GIF under 10 MB</source>
        <translation>GIF unter 10 MB</translation>
    </message>
    <message>
        <source>Docs</source>
        <translation>Doku</translation>
    </message>
    <message>
        <source>Crisp, balanced quality</source>
        <translation>Scharf, ausgewogene Qualität</translation>
    </message>
</context>
<context>
    <name>FrameReadError</name>
    <message>
        <source>can&apos;t be opened: %1</source>
        <translation>kann nicht geöffnet werden: %1</translation>
    </message>
    <message>
        <source>can&apos;t be read: %1</source>
        <translation>kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>holds no frame; at least one is needed</source>
        <translation>enthält kein Bild; mindestens eines wird gebraucht</translation>
    </message>
    <message>
        <source>frame %1 ends after %2 of %3 bytes; %4</source>
        <translation>Bild %1 endet nach %2 von %3 Bytes; %4</translation>
    </message>
    <message>
        <source>frame %1 is %2; each side must be 1 to 65535 pixels</source>
        <translation>Bild %1 ist %2 groß; jede Seite muss 1 bis 65535 Pixel haben</translation>
    </message>
    <message>
        <source>frame %1 is %2, more than this machine&apos;s memory holds; use smaller frames</source>
        <translation>Bild %1 ist %2 groß, mehr, als der Speicher dieses Rechners fasst; verwenden Sie kleinere Bilder</translation>
    </message>
    <message>
        <source>header has &quot;%1&quot;; expected %2</source>
        <translation>im Kopf steht „%1“; erwartet wird %2</translation>
    </message>
    <message>
        <source>frame %1 has &quot;%2&quot;; expected %3</source>
        <translation>Bild %1 hat „%2“; erwartet wird %3</translation>
    </message>
    <message>
        <source>is not an image that can be read; expected PNG, JPEG, GIF or the like, a YUV4MPEG2 stream, or --raw WxH for raw RGBA frames</source>
        <translation>ist kein lesbares Bild; erwartet wird PNG, JPEG, GIF oder Ähnliches, ein YUV4MPEG2-Datenstrom oder --raw WxH für rohe RGBA-Bilder</translation>
    </message>
    <message>
        <source>frame %1 can&apos;t be decoded: %2</source>
        <translation>Bild %1 kann nicht dekodiert werden: %2</translation>
    </message>
    <message>
        <source>plays for %1 s, more than %2 s; use --source-fps to take its frames one each</source>
        <translation>dauert %1 s, mehr als %2 s; mit --source-fps werden die Bilder einzeln genommen</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>is --raw %1 its true size?</source>
        <translation>ist --raw %1 die wahre Größe?</translation>
    </message>
    <message>
        <source>a rate like F30:1 or F30000:1001</source>
        <translation>eine Bildrate wie F30:1 oder F30000:1001</translation>
    </message>
    <message>
        <source>a YUV4MPEG2 stream (or --raw WxH for raw RGBA frames)</source>
        <translation>ein YUV4MPEG2-Datenstrom (oder --raw WxH für rohe RGBA-Bilder)</translation>
    </message>
    <message>
        <source>a whole number of pixels</source>
        <translation>eine ganze Zahl von Pixeln</translation>
    </message>
    <message>
        <source>the frame size in its tags W and H</source>
        <translation>die Bildgröße in den Angaben W und H</translation>
    </message>
    <message>
        <source>XCOLORRANGE=FULL or XCOLORRANGE=LIMITED</source>
        <translation>XCOLORRANGE=FULL oder XCOLORRANGE=LIMITED</translation>
    </message>
    <message>
        <source>FRAME and its picture; the stream is cut off</source>
        <translation>FRAME mit Bild; der Datenstrom ist abgeschnitten</translation>
    </message>
    <message>
        <source>FRAME; the frame before it has another size</source>
        <translation>FRAME; das Bild davor hat eine andere Größe</translation>
    </message>
    <message>
        <source>write the stream again</source>
        <translation>schreiben Sie den Datenstrom neu</translation>
    </message>
    <message>
        <source>became shorter while it was being read; run the command again</source>
        <translation>ist beim Lesen kürzer geworden; führen Sie den Befehl erneut aus</translation>
    </message>
    <message>
        <source>is a %1 image, for which a plugin is missing; install qt6-image-formats-plugins (Fedora: qt6-qtimageformats, Arch: qt6-imageformats)</source>
        <translation>ist ein Bild im Format %1, für das ein Plugin fehlt; installieren Sie qt6-image-formats-plugins (Fedora: qt6-qtimageformats, Arch: qt6-imageformats)</translation>
    </message>
    <message>
        <source>is a video; have FFmpeg take its pictures: ffmpeg -i VIDEO -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o OUT.gif -</source>
        <translation>ist ein Video; lassen Sie FFmpeg die Bilder entnehmen: ffmpeg -i VIDEO -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o OUT.gif -</translation>
    </message>
    <message>
        <source>is cut off: not even its first frame is whole; get the file again</source>
        <translation>ist abgeschnitten: Nicht einmal das erste Bild ist vollständig; besorgen Sie die Datei noch einmal</translation>
    </message>
    <message numerus="yes">
        <source>is cut off after %n whole frame(s); get the file again, or --keep-going</source>
        <translation>
            <numerusform>ist nach %n vollständigen Bild abgeschnitten; besorgen Sie die Datei noch einmal, oder --keep-going</numerusform>
            <numerusform>ist nach %n vollständigen Bildern abgeschnitten; besorgen Sie die Datei noch einmal, oder --keep-going</numerusform>
        </translation>
    </message>
    <message>
        <source>frame %1 is %2, but the first is %3; without --strict it is fitted into that</source>
        <translation>Bild %1 ist %2, das erste aber %3; ohne --strict wird es darin eingepasst</translation>
    </message>
    <message>
        <source>frames are %1, so --crop names a part that they don&apos;t have</source>
        <translation>die Bilder sind %1; --crop nennt einen Ausschnitt, den sie nicht haben</translation>
    </message>
    <message>
        <source>no image is there; name a folder with images, or a pattern that some fit</source>
        <translation>dort ist kein Bild; nennen Sie einen Ordner mit Bildern oder ein Muster, auf das welche passen</translation>
    </message>
    <message>
        <source>C420, C422, C444, C411 or Cmono of 8 to 16 bits (with FFmpeg: -pix_fmt yuv444p)</source>
        <translation>C420, C422, C444, C411 oder Cmono mit 8 bis 16 Bit (bei FFmpeg: -pix_fmt yuv444p)</translation>
    </message>
    <message>
        <source>at least one frame in ten minutes</source>
        <translation>mindestens ein Bild in zehn Minuten</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>Examples:
  quillbox record --region 0,0,800x600 --duration 3
  quillbox record --select --copy --duration 3
  quillbox record --region 100,50,640x480 -o demo.gif     (Ctrl-C stops and saves)</source>
        <translation>Beispiele:
  quillbox record --region 0,0,800x600 --duration 3
  quillbox record --select --copy --duration 3
  quillbox record --region 100,50,640x480 -o demo.gif     (Strg-C beendet und speichert)</translation>
    </message>
    <message>
        <source>Where the GIF is meant for: its limits on size, width and colours</source>
        <translation>Wofür das GIF gedacht ist: Grenzen für Größe, Breite und Farben</translation>
    </message>
    <message>
        <source>The GIF to write, - for standard output (default: %1)</source>
        <translation>Das GIF, das geschrieben wird, - für die Standardausgabe (Standard: %1)</translation>
    </message>
    <message>
        <source>Describe the result as a JSON object</source>
        <translation>Das Ergebnis als JSON-Objekt beschreiben</translation>
    </message>
    <message>
        <source>Replace OUT if it exists</source>
        <translation>OUT ersetzen, falls vorhanden</translation>
    </message>
    <message>
        <source>Let the user drag out a region and record it</source>
        <translation>Einen Bereich aufziehen lassen und aufnehmen</translation>
    </message>
    <message>
        <source>Stop recording, save and copy the clip, and print where it is</source>
        <translation>Aufnahme beenden, Clip speichern und kopieren und seinen Ort ausgeben</translation>
    </message>
    <message>
        <source>Stop a recording, or begin one</source>
        <translation>Eine Aufnahme beenden oder beginnen</translation>
    </message>
    <message>
        <source>Open the panel</source>
        <translation>Das Fenster öffnen</translation>
    </message>
    <message>
        <source>Print what the application is doing</source>
        <translation>Ausgeben, was die Anwendung gerade tut</translation>
    </message>
    <message>
        <source>End the application</source>
        <translation>Die Anwendung beenden</translation>
    </message>
    <message>
        <source>Example:
  quillbox %1</source>
        <translation>Beispiel:
  quillbox %1</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Aufruf</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPTIONEN</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>BEFEHL</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>Argumente</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>ERFORDERLICH</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>Diese Hilfe ausgeben und beenden</translation>
    </message>
    <message>
        <source>%1 (of the running application)</source>
        <translation>%1 (in der laufenden Anwendung)</translation>
    </message>
    <message>
        <source>Answer with a JSON object</source>
        <translation>Mit einem JSON-Objekt antworten</translation>
    </message>
    <message>
        <source>Print the version</source>
        <translation>Die Version ausgeben</translation>
    </message>
    <message>
        <source>Turn images, YUV4MPEG2 or raw frames into a GIF</source>
        <translation>Bilder, YUV4MPEG2 oder rohe Einzelbilder in ein GIF umwandeln</translation>
    </message>
    <message>
        <source>beside the first INPUT, with the extension gif</source>
        <translation>neben dem ersten INPUT, mit der Endung gif</translation>
    </message>
    <message>
        <source>Record a region of the screen as a GIF</source>
        <translation>Einen Bereich des Bildschirms als GIF aufnehmen</translation>
    </message>
    <message>
        <source>Left, top and size of the region, points of the main display</source>
        <translation>Links, oben und Größe des Bereichs, in Punkten des Hauptbildschirms</translation>
    </message>
    <message>
        <source>Drag the region out on the screen</source>
        <translation>Den Bereich auf dem Bildschirm aufziehen</translation>
    </message>
    <message>
        <source>Stop after so many seconds (default: Ctrl-C stops)</source>
        <translation>Nach so vielen Sekunden enden (Standard: Strg-C beendet)</translation>
    </message>
    <message>
        <source>a dated file in the folder Quillbox of your videos</source>
        <translation>eine Datei mit Datum im Ordner Quillbox Ihrer Videos</translation>
    </message>
    <message>
        <source>Put the clip on the clipboard, too</source>
        <translation>Den Clip auch in die Zwischenablage legen</translation>
    </message>
    <message>
        <source>List the clips made lately, newest first</source>
        <translation>Die letzten Clips auflisten, den neuesten zuerst</translation>
    </message>
    <message>
        <source>Print them as a JSON array</source>
        <translation>Als JSON-Array ausgeben</translation>
    </message>
    <message>
        <source>Tell what this desktop has to record, copy and so on, and what is missing</source>
        <translation>Ausgeben, was diese Arbeitsumgebung zum Aufnehmen, Kopieren usw. bietet und was fehlt</translation>
    </message>
    <message>
        <source>Print it as a JSON object</source>
        <translation>Als JSON-Objekt ausgeben</translation>
    </message>
    <message>
        <source>The exit status is 0 where the screen can be recorded, else 1.</source>
        <translation>Der Exit-Status ist 0, wenn der Bildschirm aufgenommen werden kann, sonst 1.</translation>
    </message>
    <message>
        <source>Show every change, as exactly as the preset&apos;s size and width allow</source>
        <translation>Jede Änderung zeigen, so genau, wie Größe und Breite der Voreinstellung es erlauben</translation>
    </message>
    <message>
        <source>With --precise: the size instead of the preset&apos;s</source>
        <translation>Mit --precise: die Größe statt der der Voreinstellung</translation>
    </message>
    <message>
        <source>With --precise: the width instead of the preset&apos;s</source>
        <translation>Mit --precise: die Breite statt der der Voreinstellung</translation>
    </message>
    <message>
        <source>With --precise: the most pictures a second (default: 30)</source>
        <translation>Mit --precise: höchstens so viele Bilder je Sekunde (Vorgabe: 30)</translation>
    </message>
    <message>
        <source>With --precise: the most colours of a picture (default: 256)</source>
        <translation>Mit --precise: höchstens so viele Farben je Bild (Vorgabe: 256)</translation>
    </message>
    <message>
        <source>Turns a part of the screen, or a clip, into a small animated GIF.
Without a command: the application in the tray, from where everything can be done with the mouse.

Examples:
  quillbox                      (starts the application, or shows it)
  quillbox toggle               (for a key binding: record, then stop and copy)
Record a region from a script:
  quillbox record --region 100,100,640x480 --duration 3 --force -o demo.gif
Encode frames of another program:
  ffmpeg -v error -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - \
    | quillbox encode --matrix bt709 -o clip.gif -
Record a program in continuous integration, without a display:
  xvfb-run -s &quot;-screen 0 1280x720x24&quot; \
    sh -c &quot;my-program &amp; quillbox record --region 0,0,1280x720 --duration 3 -o program.gif&quot;

The commands below have more examples: quillbox encode --help</source>
        <translation>Macht aus einem Teil des Bildschirms oder aus einem Clip ein kleines animiertes GIF.
Ohne Befehl: die Anwendung im Infobereich, in der sich alles mit der Maus erledigen lässt.

Beispiele:
  quillbox                      (startet die Anwendung oder zeigt sie)
  quillbox toggle               (für ein Tastenkürzel: aufnehmen, dann beenden und kopieren)
Einen Bereich aus einem Skript aufnehmen:
  quillbox record --region 100,100,640x480 --duration 3 --force -o demo.gif
Bilder eines anderen Programms kodieren:
  ffmpeg -v error -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - \
    | quillbox encode --matrix bt709 -o clip.gif -
Ein Programm in der Continuous Integration aufnehmen, ohne Bildschirm:
  xvfb-run -s &quot;-screen 0 1280x720x24&quot; \
    sh -c &quot;my-program &amp; quillbox record --region 0,0,1280x720 --duration 3 -o program.gif&quot;

Die Befehle unten haben weitere Beispiele: quillbox encode --help</translation>
    </message>
    <message>
        <source>Examples:
  quillbox encode -o steps.gif step1.png step2.png step3.png --source-fps 1
  quillbox encode -o steps.gif step%02d.png --delay 1.5
  ffmpeg -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o clip.gif -
  quillbox encode --raw 1280x720 --preset github capture.rgba</source>
        <translation>Beispiele:
  quillbox encode -o steps.gif step1.png step2.png step3.png --source-fps 1
  quillbox encode -o steps.gif step%02d.png --delay 1.5
  ffmpeg -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o clip.gif -
  quillbox encode --raw 1280x720 --preset github capture.rgba</translation>
    </message>
    <message>
        <source>Print neither progress nor the result, unless as JSON</source>
        <translation>Weder Fortschritt noch Ergebnis ausgeben, außer als JSON</translation>
    </message>
    <message>
        <source>Shrink wider frames to so many pixels; with --precise, instead of the preset&apos;s width</source>
        <translation>Breitere Bilder auf so viele Pixel verkleinern; mit --precise statt der Breite der Voreinstellung</translation>
    </message>
    <message>
        <source>the text can&apos;t be written to standard output</source>
        <translation>der Text kann nicht auf die Standardausgabe geschrieben werden</translation>
    </message>
    <message>
        <source>Images, one frame each, a folder of them, or a pattern like f%03d.png; or one animated image; or one YUV4MPEG2 stream; - for standard input</source>
        <translation>Bilder, jedes ein Einzelbild, ein Ordner davon oder ein Muster wie f%03d.png; oder ein animiertes Bild; oder ein YUV4MPEG2-Strom; - für die Standardeingabe</translation>
    </message>
    <message>
        <source>Frames per second of the input, like 12, 0.5 or 30000/1001 (default: its own; else 1 for several images, 30 for raw frames)</source>
        <translation>Bilder pro Sekunde der Eingabe, etwa 12, 0.5 oder 30000/1001 (Standard: ihre eigenen; sonst 1 bei mehreren Bildern, 30 bei rohen)</translation>
    </message>
    <message>
        <source>Show each frame of the input for so many seconds; the other way to say --source-fps</source>
        <translation>Jedes Bild der Eingabe so viele Sekunden zeigen; die andere Art, --source-fps anzugeben</translation>
    </message>
    <message>
        <source>INPUT is raw frames of this size, without padding</source>
        <translation>INPUT besteht aus rohen Bildern dieser Größe, ohne Füllbytes</translation>
    </message>
    <message>
        <source>Take this part of each frame: left, top and size</source>
        <translation>Diesen Ausschnitt jedes Bildes nehmen: links, oben und Größe</translation>
    </message>
    <message>
        <source>Play the GIF so many times (default: 0, for ever)</source>
        <translation>Das GIF so oft abspielen (Standard: 0, endlos)</translation>
    </message>
    <message>
        <source>Encode with so many threads (default: one a core)</source>
        <translation>Mit so vielen Threads kodieren (Standard: einer je Kern)</translation>
    </message>
    <message>
        <source>By which standard the YUV4MPEG2 stream has its colours (default: bt709 from 720 rows on, else bt601)</source>
        <translation>Nach welcher Norm der YUV4MPEG2-Strom seine Farben hat (Standard: bt709 ab 720 Zeilen, sonst bt601)</translation>
    </message>
    <message>
        <source>Refuse images of another size than the first instead of fitting them into it</source>
        <translation>Bilder anderer Größe als das erste ablehnen, statt sie einzupassen</translation>
    </message>
    <message>
        <source>Leave out images and frames that are damaged or cut off, and say how many</source>
        <translation>Beschädigte oder abgeschnittene Bilder weglassen und sagen, wie viele</translation>
    </message>
    <message>
        <source>Print the help of a command</source>
        <translation>Die Hilfe zu einem Befehl ausgeben</translation>
    </message>
    <message>
        <source>The command; none for all of them</source>
        <translation>Der Befehl; keiner für alle</translation>
    </message>
    <message>
        <source>Make clips of recordings that the program&apos;s end cut off</source>
        <translation>Aus Aufnahmen, die das Ende des Programms abbrach, Clips machen</translation>
    </message>
    <message>
        <source>Only list them: when each began, and how long it is</source>
        <translation>Sie nur auflisten: wann jede begann und wie lang sie ist</translation>
    </message>
    <message>
        <source>Remove them instead</source>
        <translation>Sie stattdessen entfernen</translation>
    </message>
    <message>
        <source>Make another clip of what was recorded last, save and copy it</source>
        <translation>Aus der letzten Aufnahme noch einen Clip machen, ihn speichern und kopieren</translation>
    </message>
    <message>
        <source>Keep every change in this clip</source>
        <translation>In diesem Clip jede Änderung behalten</translation>
    </message>
    <message>
        <source>Where the GIF is meant for (default: as for the clip before)</source>
        <translation>Wofür das GIF gedacht ist (Vorgabe: wie beim Clip davor)</translation>
    </message>
    <message>
        <source>Mix colours that the palette lacks; not with --precise</source>
        <translation>Farben mischen, die der Palette fehlen; nicht mit --precise</translation>
    </message>
    <message>
        <source>With --raw: the bytes of a pixel</source>
        <translation>Mit --raw: die Bytes eines Pixels</translation>
    </message>
    <message>
        <source>What shows through transparent pixels (default: white; raw frames are opaque unless this is given)</source>
        <translation>Was durch durchsichtige Pixel scheint (Standard: Weiß; rohe Bilder sind ohne diese Angabe undurchsichtig)</translation>
    </message>
</context>
<context>
    <name>HistoryCommand</name>
    <message>
        <source>the list can&apos;t be written to standard output</source>
        <translation>die Liste lässt sich nicht auf die Standardausgabe schreiben</translation>
    </message>
</context>
<context>
    <name>HotkeyNotice</name>
    <message>
        <source>This desktop has given Quillbox no hotkey. Bind “quillbox toggle” to a key in its settings.</source>
        <translation>Diese Arbeitsumgebung hat Quillbox kein Tastenkürzel gegeben. Legen Sie „quillbox toggle“ in ihren Einstellungen auf eine Taste.</translation>
    </message>
    <message>
        <source>This desktop has no global hotkeys. Bind “quillbox toggle” to a key in its settings.</source>
        <translation>Diese Arbeitsumgebung kennt keine globalen Tastenkürzel. Legen Sie „quillbox toggle“ in ihren Einstellungen auf eine Taste.</translation>
    </message>
    <message>
        <source>No hotkey, as you decided. “quillbox toggle” can be bound to a key; “quillbox doctor” tells how to be asked again.</source>
        <translation>Kein Tastenkürzel, wie von Ihnen entschieden. „quillbox toggle“ lässt sich auf eine Taste legen; „quillbox doctor“ sagt, wie Sie erneut gefragt werden.</translation>
    </message>
    <message>
        <source>The desktop may ask whether Quillbox may have this hotkey.</source>
        <translation>Die Arbeitsumgebung fragt eventuell, ob Quillbox dieses Tastenkürzel haben darf.</translation>
    </message>
    <message>
        <source>The desktop&apos;s settings tell the keys, and can change them.</source>
        <translation>Die Tasten stehen in den Einstellungen der Arbeitsumgebung und lassen sich dort ändern.</translation>
    </message>
    <message>
        <source>The desktop has set the keys to: %1. Its settings can change them.</source>
        <translation>Die Arbeitsumgebung hat diese Tasten festgelegt: %1. In ihren Einstellungen lassen sie sich ändern.</translation>
    </message>
    <message>
        <source>Super + Shift + %1</source>
        <translation>Super + Umschalt + %1</translation>
    </message>
    <message>
        <source>Another program uses %1. Quillbox gets it as soon as it is free; “quillbox toggle” can be bound to any other key.</source>
        <translation>Ein anderes Programm benutzt %1. Quillbox bekommt die Tasten, sobald sie frei sind; „quillbox toggle“ lässt sich auf jede andere Taste legen.</translation>
    </message>
    <message>
        <source>⌘ is the Super key: press %1 in any program.</source>
        <translation>⌘ ist die Super-Taste: Drücken Sie %1 in einem beliebigen Programm.</translation>
    </message>
    <message>
        <source>Press “Record Region”, not ⌘⇧2.</source>
        <translation>Drücken Sie „Bereich aufnehmen“, nicht ⌘⇧2.</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <comment>two sentences</comment>
        <translation>%1 %2</translation>
    </message>
</context>
<context>
    <name>InputReader</name>
    <message numerus="yes">
        <source>%1; the %n frame(s) before that are in the clip</source>
        <translation>
            <numerusform>%1; das %n Bild davor ist im Clip</numerusform>
            <numerusform>%1; die %n Bilder davor sind im Clip</numerusform>
        </translation>
    </message>
    <message>
        <source>images left out: %1 of %2; %3</source>
        <translation>weggelassene Bilder: %1 von %2; %3</translation>
    </message>
</context>
<context>
    <name>OutputFileError</name>
    <message>
        <source>the file exists already; use --force to replace it</source>
        <translation>die Datei gibt es schon; --force ersetzt sie</translation>
    </message>
    <message>
        <source>there is no folder %1; create it first</source>
        <translation>den Ordner %1 gibt es nicht; legen Sie ihn zuerst an</translation>
    </message>
    <message>
        <source>it is a folder; name a file</source>
        <translation>es ist ein Ordner; nennen Sie eine Datei</translation>
    </message>
    <message>
        <source>it is an input itself; name another file with -o</source>
        <translation>es ist selbst eine Eingabe; nennen Sie mit -o eine andere Datei</translation>
    </message>
    <message>
        <source>no space left; free some or save elsewhere</source>
        <translation>kein Platz mehr; schaffen Sie welchen oder speichern Sie anderswo</translation>
    </message>
    <message>
        <source>%1: can&apos;t be saved: %2</source>
        <translation>%1: kann nicht gespeichert werden: %2</translation>
    </message>
    <message>
        <source>it is larger than a file may be here (ulimit -f)</source>
        <translation>sie ist größer, als eine Datei hier sein darf (ulimit -f)</translation>
    </message>
</context>
<context>
    <name>ParserMessages</name>
    <message>
        <source>%1 is required</source>
        <translation>%1 fehlt</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>Unerwartetes Argument: %1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>Unerwartete Argumente: %1</translation>
    </message>
    <message>
        <source>%1: 1 required %2 missing</source>
        <translation>%1: der Wert %2 fehlt</translation>
    </message>
</context>
<context>
    <name>ProgressLine</name>
    <message>
        <source>reading</source>
        <translation>lesen</translation>
    </message>
    <message>
        <source>saving</source>
        <translation>speichern</translation>
    </message>
    <message numerus="yes">
        <source>attempt %1: %n colour(s), %2 %</source>
        <translation>
            <numerusform>Versuch %1: %n Farbe, %2 %</numerusform>
            <numerusform>Versuch %1: %n Farben, %2 %</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>recording %1 s, %n frame(s); Ctrl-C stops</source>
        <translation>
            <numerusform>Aufnahme: %1 s, %n Bild; Strg-C beendet</numerusform>
            <numerusform>Aufnahme: %1 s, %n Bilder; Strg-C beendet</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>palette %1 of %2: %n colour(s), %3 %</source>
        <translation>
            <numerusform>Palette %1 von %2: %n Farbe, %3 %</numerusform>
            <numerusform>Palette %1 von %2: %n Farben, %3 %</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; Ctrl-C again ends this without a clip</source>
        <translation>%1; noch einmal Strg-C beendet dies ohne Clip</translation>
    </message>
</context>
<context>
    <name>QuillboxApp</name>
    <message>
        <source>A new version of Quillbox is available</source>
        <translation>Eine neue Version von Quillbox ist verfügbar</translation>
    </message>
    <message>
        <source>Quillbox %1 is available</source>
        <translation>Quillbox %1 ist verfügbar</translation>
    </message>
    <message>
        <source>“Check for Updates…” in the panel installs it.</source>
        <translation>„Nach Updates suchen…“ im Fenster installiert sie.</translation>
    </message>
    <message>
        <source>The recording goes on</source>
        <translation>Die Aufnahme geht weiter</translation>
    </message>
    <message>
        <source>It could not be prepared for the clip meanwhile. Making the clip will take longer.</source>
        <translation>Sie konnte nebenher nicht für den Clip vorbereitet werden. Der Clip wird länger brauchen.</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>Benachrichtigungen</translation>
    </message>
    <message>
        <source>Quillbox was running twice</source>
        <translation>Quillbox lief doppelt</translation>
    </message>
    <message>
        <source>The desktop&apos;s session bus had been restarted. The one that was started first has ended; its clips are saved.</source>
        <translation>Der Sitzungsbus war neu gestartet worden. Das zuerst gestartete Quillbox hat sich beendet; seine Clips sind gespeichert.</translation>
    </message>
</context>
<context>
    <name>RecordCommand</name>
    <message>
        <source>There is no display to record. Set DISPLAY to an X11 display, such as :0</source>
        <translation>Es gibt keinen Bildschirm zum Aufnehmen. Setzen Sie DISPLAY auf einen X11-Bildschirm wie :0</translation>
    </message>
    <message>
        <source>Couldn&apos;t start recording: %1.</source>
        <translation>Die Aufnahme konnte nicht beginnen: %1.</translation>
    </message>
    <message>
        <source>The recording ended early: %1. What was recorded is kept.</source>
        <translation>Die Aufnahme endete vorzeitig: %1. Was aufgenommen wurde, bleibt erhalten.</translation>
    </message>
    <message>
        <source>the clip stays on the clipboard until something else is copied; Ctrl-C ends this program</source>
        <translation>der Clip bleibt in der Zwischenablage, bis etwas anderes kopiert wird; Strg-C beendet dieses Programm</translation>
    </message>
    <message>
        <source>nothing was selected, so nothing was recorded</source>
        <translation>es wurde nichts ausgewählt, also auch nichts aufgenommen</translation>
    </message>
    <message>
        <source>%1. The desktop application does it: start quillbox first.</source>
        <translation>%1. Die Desktop-Anwendung kann es: Starten Sie zuerst quillbox.</translation>
    </message>
    <message>
        <source>%1.</source>
        <translation>%1.</translation>
    </message>
    <message>
        <source>the clip gets onto the clipboard when the panel is opened: quillbox show</source>
        <translation>der Clip kommt in die Zwischenablage, sobald das Fenster geöffnet wird: quillbox show</translation>
    </message>
    <message>
        <source>the clip is saved, but it couldn&apos;t be put on the clipboard</source>
        <translation>der Clip ist gespeichert, konnte aber nicht in die Zwischenablage gelegt werden</translation>
    </message>
    <message>
        <source>the clip could not be copied, so nothing was recorded. %1</source>
        <translation>der Clip könnte nicht kopiert werden, also wurde nichts aufgenommen. %1</translation>
    </message>
    <message>
        <source>warning: only %1x%2 of the region&apos;s %3x%4 are on the main display; the rest is not in the clip</source>
        <translation>Warnung: Nur %1x%2 des Bereichs von %3x%4 liegen auf dem Hauptbildschirm; der Rest fehlt im Clip</translation>
    </message>
    <message>
        <source>warning: the clip may begin with remains of the selection: the desktop took more than two seconds to remove them from the screen</source>
        <translation>Warnung: Am Anfang des Clips können Reste der Auswahl zu sehen sein: Die Arbeitsumgebung hat sie erst nach mehr als zwei Sekunden vom Bildschirm entfernt</translation>
    </message>
</context>
<context>
    <name>RecordingCoordinator</name>
    <message>
        <source>an unknown error</source>
        <translation>unbekannter Fehler</translation>
    </message>
    <message>
        <source>There is no display to record</source>
        <translation>Es gibt keinen Bildschirm zum Aufnehmen</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>There is not enough memory for this recording</source>
        <translation>Für diese Aufnahme reicht der Speicher nicht</translation>
    </message>
    <message>
        <source>Couldn&apos;t start recording: %1</source>
        <translation>Die Aufnahme konnte nicht beginnen: %1</translation>
    </message>
    <message>
        <source>No frames captured.</source>
        <translation>Es wurde kein Bild aufgenommen.</translation>
    </message>
    <message>
        <source>Couldn&apos;t save clip: %1</source>
        <translation>Der Clip konnte nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Region too large to encode (%1×%2). Max is %3 per side.</source>
        <translation>Der Bereich ist zu groß zum Kodieren (%1×%2). Möglich sind höchstens %3 je Seite.</translation>
    </message>
</context>
<context>
    <name>RecoverCommand</name>
    <message>
        <source>no recording was cut off; there is nothing to recover</source>
        <translation>keine Aufnahme wurde abgebrochen; es gibt nichts wiederherzustellen</translation>
    </message>
    <message>
        <source>several recordings were cut off; leave out -o to make a clip of each</source>
        <translation>mehrere Aufnahmen wurden abgebrochen; lassen Sie -o weg, um aus jeder einen Clip zu machen</translation>
    </message>
</context>
<context>
    <name>ResultReport</name>
    <message>
        <source>%1: %2, %3, %4, %5 fps, %6 s, %7</source>
        <translation>%1: %2, %3, %4, %5 Bilder/s, %6 s, %7</translation>
    </message>
    <message numerus="yes">
        <source>%n frame(s)</source>
        <translation>
            <numerusform>%n Bild</numerusform>
            <numerusform>%n Bilder</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n colour(s)</source>
        <translation>
            <numerusform>%n Farbe</numerusform>
            <numerusform>%n Farben</numerusform>
        </translation>
    </message>
    <message>
        <source>dithered</source>
        <translation>gerastert</translation>
    </message>
    <message>
        <source>not dithered</source>
        <translation>nicht gerastert</translation>
    </message>
    <message>
        <source>; over the %1 MB budget of %2: record less, or a smaller part of the screen</source>
        <translation>; über der Grenze von %1 MB für %2: Nehmen Sie kürzer oder einen kleineren Teil des Bildschirms auf</translation>
    </message>
    <message>
        <source>; over the %1 of --max-size: record less, or a smaller part of the screen</source>
        <translation>; über den %1 von --max-size: weniger oder einen kleineren Teil des Bildschirms aufnehmen</translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: at most %2 a second, and changes of less than 1 % merge (--precise keeps them)</source>
        <translation>
            <numerusform>; %n Bild, %1 behalten: höchstens %2 pro Sekunde, und Änderungen unter 1 % werden vereint (--precise behält sie)</numerusform>
            <numerusform>; %n Bilder, %1 behalten: höchstens %2 pro Sekunde, und Änderungen unter 1 % werden vereint (--precise behält sie)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: changes of less than 1 % merge (--precise keeps them)</source>
        <translation>
            <numerusform>; %n Bild, %1 behalten: Änderungen unter 1 % werden vereint (--precise behält sie)</numerusform>
            <numerusform>; %n Bilder, %1 behalten: Änderungen unter 1 % werden vereint (--precise behält sie)</numerusform>
        </translation>
    </message>
    <message>
        <source>; over the %1 MB budget of %2: try --max-width, --crop, fewer frames or another --preset</source>
        <translation>; über dem Limit von %1 MB für %2: versuchen Sie --max-width, --crop, weniger Bilder oder ein anderes --preset</translation>
    </message>
    <message>
        <source>picture %1 dB less exact</source>
        <translation>Bild %1 dB ungenauer</translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) left out</source>
        <translation>
            <numerusform>%n Änderung ausgelassen</numerusform>
            <numerusform>%n Änderungen ausgelassen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 % narrower</source>
        <translation>%1 % schmaler</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>; to fit: %1</source>
        <translation>; damit es passt: %1</translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: at most %2 a second (--max-fps)</source>
        <translation>
            <numerusform>; %n Bild, %1 behalten: höchstens %2 pro Sekunde (--max-fps)</numerusform>
            <numerusform>; %n Bilder, %1 behalten: höchstens %2 pro Sekunde (--max-fps)</numerusform>
        </translation>
    </message>
    <message>
        <source>, every change kept</source>
        <translation>, jede Änderung behalten</translation>
    </message>
    <message>
        <source>%1: %2, %3, %4, %5 s</source>
        <translation>%1: %2, %3, %4, %5 s</translation>
    </message>
    <message>
        <source>; over the %1 of --max-size: try --max-width, --crop or fewer frames</source>
        <translation>; über den %1 von --max-size: versuchen Sie --max-width, --crop oder weniger Bilder</translation>
    </message>
</context>
<context>
    <name>StatusReport</name>
    <message numerus="yes">
        <source>%n recording(s) cut off; quillbox recover makes clips</source>
        <translation>
            <numerusform>%n Aufnahme abgebrochen; quillbox recover macht einen Clip daraus</numerusform>
            <numerusform>%n Aufnahmen abgebrochen; quillbox recover macht Clips daraus</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Streams</name>
    <message>
        <source>standard output</source>
        <translation>Standardausgabe</translation>
    </message>
    <message>
        <source>standard error</source>
        <translation>Standardfehlerausgabe</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>Standardeingabe</translation>
    </message>
</context>
<context>
    <name>UpdaterController</name>
    <message>
        <source>The system&apos;s software service can&apos;t be reached.</source>
        <translation>Der Softwaredienst des Systems ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>The system&apos;s software service ended while it was working.</source>
        <translation>Der Softwaredienst des Systems hat sich während der Arbeit beendet.</translation>
    </message>
    <message>
        <source>This copy of Quillbox was not installed as a package, so the system can&apos;t update it.</source>
        <translation>Dieses Quillbox wurde nicht als Paket installiert, also kann das System es nicht aktualisieren.</translation>
    </message>
    <message>
        <source>None of this computer&apos;s package sources offers Quillbox.</source>
        <translation>Keine der Paketquellen dieses Rechners bietet Quillbox an.</translation>
    </message>
    <message>
        <source>You were not allowed to do this, or no password was given.</source>
        <translation>Sie durften dies nicht tun, oder es wurde kein Passwort eingegeben.</translation>
    </message>
    <message>
        <source>The package sources can&apos;t be reached. Is this computer online?</source>
        <translation>Die Paketquellen sind nicht erreichbar. Ist dieser Rechner online?</translation>
    </message>
    <message>
        <source>The new version isn&apos;t signed by anybody this system trusts, so it was not installed.</source>
        <translation>Die neue Version ist von niemandem signiert, dem dieses System vertraut; sie wurde nicht installiert.</translation>
    </message>
    <message>
        <source>Another program is installing software. Try again once it is done.</source>
        <translation>Ein anderes Programm installiert gerade Software. Versuchen Sie es danach noch einmal.</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>Das Update wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The system reported success, but the old version is still installed.</source>
        <translation>Das System meldete Erfolg, aber es ist noch immer die alte Version installiert.</translation>
    </message>
    <message>
        <source>The system&apos;s software service didn&apos;t say why.</source>
        <translation>Der Softwaredienst des Systems hat keinen Grund genannt.</translation>
    </message>
    <message>
        <source>The system&apos;s software service says: %1</source>
        <translation>Der Softwaredienst des Systems meldet: %1</translation>
    </message>
    <message>
        <source>The package sources can&apos;t be reached, so there may be a newer version still.</source>
        <translation>Die Paketquellen sind nicht erreichbar, es kann also eine noch neuere Version geben.</translation>
    </message>
    <message>
        <source>The package sources were not asked anew, so there may be a newer version still.</source>
        <translation>Die Paketquellen wurden nicht neu abgefragt, es kann also eine noch neuere Version geben.</translation>
    </message>
    <message>
        <source>The package sources couldn&apos;t be read anew, so there may be a newer version still.</source>
        <translation>Die Paketquellen konnten nicht neu gelesen werden, es kann also eine noch neuere Version geben.</translation>
    </message>
    <message>
        <source>Updates are switched off by QUILLBOX_UPDATE_BACKEND.</source>
        <translation>Aktualisierungen sind durch QUILLBOX_UPDATE_BACKEND abgeschaltet.</translation>
    </message>
</context>
<context>
    <name>Usage</name>
    <message>
        <source>standard output is a terminal, which can&apos;t show a GIF; redirect it, or name a file with -o</source>
        <translation>die Standardausgabe ist ein Terminal, das kein GIF zeigen kann; leiten Sie sie um oder nennen Sie mit -o eine Datei</translation>
    </message>
    <message>
        <source>--preset: there is no preset &quot;%1&quot;; use slack, github or docs</source>
        <translation>--preset: Die Vorgabe „%1“ gibt es nicht; verwenden Sie slack, github oder docs</translation>
    </message>
    <message>
        <source>-o: the name is empty; name a file, or - for standard output</source>
        <translation>-o: Der Name ist leer; nennen Sie eine Datei oder - für die Standardausgabe</translation>
    </message>
    <message>
        <source>--dither: there is no &quot;%1&quot;; use auto, always or never</source>
        <translation>--dither: „%1“ gibt es nicht; verwenden Sie auto, always oder never</translation>
    </message>
    <message>
        <source>--raw: &quot;%1&quot; is not a size; write it like 1280x720</source>
        <translation>--raw: „%1“ ist keine Größe; schreiben Sie sie wie 1280x720</translation>
    </message>
    <message>
        <source>name the region with --region X,Y,WxH, or drag it out with --select</source>
        <translation>nennen Sie den Bereich mit --region X,Y,WxH oder ziehen Sie ihn mit --select auf</translation>
    </message>
    <message>
        <source>--region: &quot;%1&quot; is not a region; write it like 100,50,640x480 (left, top, size)</source>
        <translation>--region: „%1“ ist kein Bereich; schreiben Sie ihn wie 100,50,640x480 (links, oben, Größe)</translation>
    </message>
    <message>
        <source>--copy: the clipboard needs a file; leave out -o - or --copy</source>
        <translation>--copy: Die Zwischenablage braucht eine Datei; lassen Sie -o - oder --copy weg</translation>
    </message>
    <message>
        <source>--duration: &quot;%1&quot; is not a number of seconds above 0, at most 86400</source>
        <translation>--duration: „%1“ ist keine Zahl von Sekunden über 0 und höchstens 86400</translation>
    </message>
    <message>
        <source>%1; see %2</source>
        <translation>%1; siehe %2</translation>
    </message>
    <message>
        <source>this INPUT gives the GIF no name; add one, like -o clip.gif</source>
        <translation>aus diesem INPUT ergibt sich kein Name für das GIF; nennen Sie einen, etwa -o clip.gif</translation>
    </message>
    <message>
        <source>%1 is a YUV4MPEG2 stream; give it alone</source>
        <translation>%1 ist ein YUV4MPEG2-Datenstrom; geben Sie ihn allein an</translation>
    </message>
    <message>
        <source>--raw: give one INPUT with all frames, one after another</source>
        <translation>--raw: Geben Sie ein INPUT mit allen Bildern hintereinander an</translation>
    </message>
    <message>
        <source>standard input must be the only INPUT</source>
        <translation>die Standardeingabe muss das einzige INPUT sein</translation>
    </message>
    <message>
        <source>%1 belongs to --precise; add that</source>
        <translation>%1 gehört zu --precise; geben Sie das an</translation>
    </message>
    <message>
        <source>--max-size: &quot;%1&quot; is not a size; write it like 750K or 1.5M</source>
        <translation>--max-size: „%1“ ist keine Größe; schreiben Sie sie wie 750K oder 1.5M</translation>
    </message>
    <message>
        <source>--max-width: use a number of pixels from %1 to %2</source>
        <translation>--max-width: eine Anzahl Pixel von %1 bis %2 verwenden</translation>
    </message>
    <message>
        <source>--max-fps: use a number of pictures a second from %1 to %2</source>
        <translation>--max-fps: eine Anzahl Bilder je Sekunde von %1 bis %2 verwenden</translation>
    </message>
    <message>
        <source>--colors: use a number of colours from %1 to %2</source>
        <translation>--colors: eine Anzahl Farben von %1 bis %2 verwenden</translation>
    </message>
    <message>
        <source>-o: &quot;%1&quot; is no name for a GIF; let it end in .gif</source>
        <translation>-o: „%1“ ist kein Name für ein GIF; lassen Sie ihn auf .gif enden</translation>
    </message>
    <message>
        <source>--crop: &quot;%1&quot; is not a part; write it like 10,20,640x480 (left, top, size)</source>
        <translation>--crop: „%1“ ist kein Ausschnitt; schreiben Sie ihn wie 10,20,640x480 (links, oben, Größe)</translation>
    </message>
    <message>
        <source>--matrix: there is no &quot;%1&quot;; use bt601, bt709 or bt2020</source>
        <translation>--matrix: „%1“ gibt es nicht; verwenden Sie bt601, bt709 oder bt2020</translation>
    </message>
    <message>
        <source>--background: &quot;%1&quot; is not a colour; write it like #FFFFFF, white or black</source>
        <translation>--background: „%1“ ist keine Farbe; schreiben Sie sie wie #FFFFFF, white oder black</translation>
    </message>
    <message>
        <source>--raw-format: there is no &quot;%1&quot;; use rgba, bgra, rgb or bgr</source>
        <translation>--raw-format: „%1“ gibt es nicht; verwenden Sie rgba, bgra, rgb oder bgr</translation>
    </message>
    <message>
        <source>--source-fps: &quot;%1&quot; is not a number of frames per second; write it like 12, 29.97 or 30000/1001, 1000 at most</source>
        <translation>--source-fps: „%1“ ist keine Zahl von Bildern pro Sekunde; schreiben Sie sie wie 12, 29.97 oder 30000/1001, höchstens 1000</translation>
    </message>
    <message>
        <source>--delay and --source-fps say the same; use one of them</source>
        <translation>--delay und --source-fps besagen dasselbe; verwenden Sie eines davon</translation>
    </message>
    <message>
        <source>--delay: &quot;%1&quot; is not a number of seconds from 0.001 to 655.35</source>
        <translation>--delay: „%1“ ist keine Zahl von Sekunden von 0.001 bis 655.35</translation>
    </message>
    <message>
        <source>--raw: &quot;%1&quot; can&apos;t be; each side must be 1 to 65535 pixels</source>
        <translation>--raw: „%1“ geht nicht; jede Seite muss 1 bis 65535 Pixel haben</translation>
    </message>
    <message>
        <source>--threads: use a number from %1 to %2</source>
        <translation>--threads: Verwenden Sie eine Zahl von %1 bis %2</translation>
    </message>
    <message>
        <source>--loop: use a number from %1 to %2</source>
        <translation>--loop: Verwenden Sie eine Zahl von %1 bis %2</translation>
    </message>
    <message>
        <source>help: there is no command &quot;%1&quot;; see quillbox --help</source>
        <translation>help: Den Befehl „%1“ gibt es nicht; siehe quillbox --help</translation>
    </message>
    <message>
        <source>QUILLBOX_RECORDING_MEMORY is &quot;%1&quot;; make it a whole number of megabytes, or unset it</source>
        <translation>QUILLBOX_RECORDING_MEMORY ist „%1“; setzen Sie es auf eine ganze Zahl von Megabyte, oder gar nicht</translation>
    </message>
    <message>
        <source>standard input is a terminal; pipe an image, a YUV4MPEG2 stream or raw frames into it</source>
        <translation>die Standardeingabe ist ein Terminal; leiten Sie ein Bild, einen YUV4MPEG2-Strom oder rohe Bilder hinein</translation>
    </message>
    <message>
        <source>--list and --discard can&apos;t be had at once; use one of them</source>
        <translation>--list und --discard gehen nicht zugleich; verwenden Sie eines davon</translation>
    </message>
    <message>
        <source>--region and --select were both given; use one of them to say what to record</source>
        <translation>--region und --select sind beide angegeben; verwenden Sie eines davon, um zu sagen, was aufgenommen wird</translation>
    </message>
    <message>
        <source>--dither: --precise mixes no colours; leave out one of them</source>
        <translation>--dither: --precise mischt keine Farben; lassen Sie eines von beiden weg</translation>
    </message>
    <message>
        <source>%1 belongs to --raw; add that</source>
        <translation>%1 gehört zu --raw; fügen Sie das hinzu</translation>
    </message>
    <message>
        <source>--matrix: raw frames are red, green and blue; leave it out</source>
        <translation>--matrix: rohe Bilder bestehen aus Rot, Grün und Blau; lassen Sie es weg</translation>
    </message>
    <message>
        <source>--background: %1 frames have no transparency; leave it out</source>
        <translation>--background: %1-Bilder haben keine Durchsichtigkeit; lassen Sie es weg</translation>
    </message>
    <message>
        <source>QUILLBOX_JOURNAL is &quot;%1&quot;; set it to off to keep no recording on disk, or unset it</source>
        <translation>QUILLBOX_JOURNAL ist „%1“; setzen Sie es auf off, um keine Aufnahme auf der Platte zu halten, oder entfernen Sie es</translation>
    </message>
</context>
<context>
    <name>quillbox::ApplicationService</name>
    <message>
        <source>Nothing is being recorded</source>
        <translation>Es läuft keine Aufnahme</translation>
    </message>
    <message>
        <source>A clip is being made already</source>
        <translation>Es wird schon ein Clip gemacht</translation>
    </message>
    <message>
        <source>Nothing has been recorded since Quillbox was started</source>
        <translation>Seit dem Start von Quillbox wurde nichts aufgenommen</translation>
    </message>
    <message>
        <source>There is no preset “%1”</source>
        <translation>Es gibt keine Vorgabe „%1“</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipActions</name>
    <message>
        <source>No program opens the clip.</source>
        <translation>Kein Programm öffnet den Clip.</translation>
    </message>
    <message>
        <source>The clip can&apos;t be read.</source>
        <translation>Der Clip kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The clip could not be moved to the trash.</source>
        <translation>Der Clip konnte nicht in den Papierkorb verschoben werden.</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipNotices</name>
    <message>
        <source>The recording ended early</source>
        <translation>Die Aufnahme endete vorzeitig</translation>
    </message>
    <message>
        <source>%1. What was recorded is kept.</source>
        <translation>%1. Was aufgenommen wurde, bleibt erhalten.</translation>
    </message>
    <message>
        <source>The clip is ready to paste</source>
        <translation>Der Clip kann eingefügt werden</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>No clip was made</source>
        <translation>Es ist kein Clip entstanden</translation>
    </message>
    <message>
        <source>The clip may begin with remains of the selection</source>
        <translation>Am Anfang des Clips können Reste der Auswahl zu sehen sein</translation>
    </message>
    <message>
        <source>The desktop took more than two seconds to remove them from the screen.</source>
        <translation>Die Arbeitsumgebung hat sie erst nach mehr als zwei Sekunden vom Bildschirm entfernt.</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipOffers</name>
    <message numerus="yes">
        <source>%1 of %2 · shows %3 of %Ln recorded picture(s)</source>
        <translation>
            <numerusform>%1 von %2 · zeigt %3 von %Ln aufgenommenen Bild</numerusform>
            <numerusform>%1 von %2 · zeigt %3 von %Ln aufgenommenen Bildern</numerusform>
        </translation>
    </message>
    <message>
        <source>Make it sharper</source>
        <translation>Schärfer machen</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Noch einmal</translation>
    </message>
    <message>
        <source>Save elsewhere…</source>
        <translation>Woanders speichern …</translation>
    </message>
    <message>
        <source>Again as %1</source>
        <translation>Noch einmal für %1</translation>
    </message>
    <message>
        <source>%1 over the %2 budget of %3</source>
        <translation>%1 über den %2, die %3 zulässt</translation>
    </message>
    <message numerus="yes">
        <source> · shows %1 of %Ln recorded picture(s)</source>
        <translation>
            <numerusform> · zeigt %1 von %Ln aufgenommenen Bild</numerusform>
            <numerusform> · zeigt %1 von %Ln aufgenommenen Bildern</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>quillbox::ClipPreview</name>
    <message>
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 Pixel</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipResult</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipSaveDialog</name>
    <message>
        <source>Save Clip</source>
        <translation>Clip speichern</translation>
    </message>
    <message>
        <source>GIF (*.gif)</source>
        <translation>GIF (*.gif)</translation>
    </message>
</context>
<context>
    <name>quillbox::CutOffLine</name>
    <message>
        <source>A recording was cut off and is damaged; nothing can be made of it.</source>
        <translation>Eine Aufnahme wurde abgebrochen und ist beschädigt; daraus lässt sich nichts machen.</translation>
    </message>
    <message>
        <source>A recording from %1 was cut off (%2 s).</source>
        <translation>Eine Aufnahme von %1 wurde abgebrochen (%2 s).</translation>
    </message>
    <message>
        <source>Make the clip</source>
        <translation>Clip erstellen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Discard for good</source>
        <translation>Endgültig verwerfen</translation>
    </message>
    <message>
        <source>Keep it</source>
        <translation>Behalten</translation>
    </message>
</context>
<context>
    <name>quillbox::EdgeStop</name>
    <message>
        <source>Rest the pointer at the upper edge of the screen to see this again.</source>
        <translation>Ruht der Zeiger am oberen Bildschirmrand, erscheint dies wieder.</translation>
    </message>
</context>
<context>
    <name>quillbox::FirstUseCard</name>
    <message>
        <source>How it works</source>
        <translation>So funktioniert es</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>Verstanden</translation>
    </message>
    <message>
        <source>Quillbox waits in the tray of your desktop. Click its icon to open this panel.</source>
        <translation>Quillbox wartet im Infobereich. Ein Klick auf das Symbol öffnet dieses Fenster.</translation>
    </message>
    <message>
        <source>This desktop has no tray for an icon. Start Quillbox again to open this panel.</source>
        <translation>Diese Arbeitsumgebung hat keinen Infobereich für ein Symbol. Starten Sie Quillbox erneut, um dieses Fenster zu öffnen.</translation>
    </message>
    <message>
        <source>Clips are copied, ready to paste, and saved in %1.</source>
        <translation>Clips liegen zum Einfügen in der Zwischenablage und werden in %1 gespeichert.</translation>
    </message>
    <message>
        <source>Press %1 (⌘⇧2) in any program and drag out a region to record it.</source>
        <translation>Drücken Sie in einem beliebigen Programm %1 (⌘⇧2) und ziehen Sie den Bereich auf, den Sie aufnehmen möchten.</translation>
    </message>
</context>
<context>
    <name>quillbox::HistoryNotice</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
</context>
<context>
    <name>quillbox::HistoryPanel</name>
    <message>
        <source>Recent Clips</source>
        <translation>Letzte Clips</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>No clips yet</source>
        <translation>Noch keine Clips</translation>
    </message>
    <message>
        <source>Your recorded clips will show up here.</source>
        <translation>Ihre aufgenommenen Clips erscheinen hier.</translation>
    </message>
    <message>
        <source>The files are still there.</source>
        <translation>Die Dateien sind noch da.</translation>
    </message>
    <message>
        <source>Move “%1” to the trash?</source>
        <translation>„%1“ in den Papierkorb verschieben?</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>In den Papierkorb</translation>
    </message>
</context>
<context>
    <name>quillbox::HistoryRow</name>
    <message>
        <source>clip</source>
        <translation>Clip</translation>
    </message>
    <message>
        <source>· %1s</source>
        <translation>· %1 s</translation>
    </message>
    <message>
        <source>Reveal in Finder</source>
        <translation>Im Dateimanager zeigen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>Move to Trash…</source>
        <translation>In den Papierkorb …</translation>
    </message>
</context>
<context>
    <name>quillbox::MonitorNotice</name>
    <message>
        <source>Recording is possible on %1 only. Drag there.</source>
        <translation>Aufnehmen lässt sich nur auf %1. Ziehen Sie dort.</translation>
    </message>
</context>
<context>
    <name>quillbox::Panel</name>
    <message>
        <source>Quillbox</source>
        <translation>Quillbox</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Puts the clip on the clipboard</source>
        <translation>Legt den Clip in die Zwischenablage</translation>
    </message>
    <message>
        <source>The clip is not on the clipboard yet.</source>
        <translation>Der Clip ist noch nicht in der Zwischenablage.</translation>
    </message>
</context>
<context>
    <name>quillbox::PortalHotkey</name>
    <message>
        <source>Record a region of the screen</source>
        <translation>Einen Bereich des Bildschirms aufnehmen</translation>
    </message>
</context>
<context>
    <name>quillbox::RecorderHUD</name>
    <message>
        <source>Press ⌘⇧2 or Record to capture a region.</source>
        <translation>⌘⇧2 oder „Bereich aufnehmen“ nimmt einen Bereich auf.</translation>
    </message>
    <message>
        <source>Drag to select a region…</source>
        <translation>Ziehen Sie einen Bereich auf…</translation>
    </message>
    <message>
        <source>Recording…</source>
        <translation>Aufnahme läuft…</translation>
    </message>
    <message>
        <source>Optimizing GIF…</source>
        <translation>GIF wird optimiert…</translation>
    </message>
    <message>
        <source>Copied — %1 · %2</source>
        <translation>Kopiert — %1 · %2</translation>
    </message>
    <message>
        <source>Quillbox</source>
        <translation>Quillbox</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Finish now</source>
        <translation>Jetzt abschließen</translation>
    </message>
    <message>
        <source>Ends with the smallest file made so far</source>
        <translation>Endet mit der bisher kleinsten Datei</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Nach Updates suchen…</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Stop &amp; Copy</source>
        <translation>Beenden &amp; kopieren</translation>
    </message>
    <message>
        <source>Record Region</source>
        <translation>Bereich aufnehmen</translation>
    </message>
    <message>
        <source>Keep every change</source>
        <translation>Jede Änderung behalten</translation>
    </message>
    <message>
        <source>Shows all that changed, as sharp as the size allows</source>
        <translation>Zeigt alles, was sich geändert hat, so scharf, wie es die Größe zulässt</translation>
    </message>
</context>
<context>
    <name>quillbox::SelectionWindow</name>
    <message>
        <source>Select a region</source>
        <translation>Bereich auswählen</translation>
    </message>
    <message>
        <source>Drag to record · Esc cancels</source>
        <translation>Zum Aufnehmen ziehen · Esc bricht ab</translation>
    </message>
</context>
<context>
    <name>quillbox::SettingsView</name>
    <message>
        <source>Capture</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Global hotkey</source>
        <translation>Globales Tastenkürzel</translation>
    </message>
    <message>
        <source>⌘⇧2</source>
        <translation>⌘⇧2</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>Datenschutz</translation>
    </message>
    <message>
        <source>Everything stays on your Mac. No cloud, no telemetry, no account.</source>
        <translation>Alles bleibt auf Ihrem Rechner. Keine Cloud, keine Telemetrie, kein Konto.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
</context>
<context>
    <name>quillbox::StopControl</name>
    <message>
        <source>Recording — Quillbox</source>
        <translation>Aufnahme – Quillbox</translation>
    </message>
    <message>
        <source>Stop &amp; Copy</source>
        <translation>Beenden &amp; kopieren</translation>
    </message>
</context>
<context>
    <name>quillbox::TrayIcon</name>
    <message>
        <source>Open Quillbox</source>
        <translation>Quillbox öffnen</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Stop &amp;&amp; Copy</source>
        <translation>Beenden &amp;&amp; kopieren</translation>
    </message>
    <message>
        <source>Record Region</source>
        <translation>Bereich aufnehmen</translation>
    </message>
    <message>
        <source>Quillbox — Recording…</source>
        <translation>Quillbox — Aufnahme läuft…</translation>
    </message>
    <message>
        <source>Keep every change</source>
        <translation>Jede Änderung behalten</translation>
    </message>
</context>
<context>
    <name>quillbox::TraylessStop</name>
    <message>
        <source>The screen is being recorded</source>
        <translation>Der Bildschirm wird aufgenommen</translation>
    </message>
    <message>
        <source>“Stop &amp; Copy” ends the recording.</source>
        <translation>„Beenden &amp; kopieren“ beendet die Aufnahme.</translation>
    </message>
    <message>
        <source>Stop &amp; Copy</source>
        <translation>Beenden &amp; kopieren</translation>
    </message>
</context>
<context>
    <name>quillbox::UpdateView</name>
    <message>
        <source>Looking for updates…</source>
        <translation>Nach Updates wird gesucht…</translation>
    </message>
    <message>
        <source>The system is asked whether it knows a newer version.</source>
        <translation>Das System wird gefragt, ob es eine neuere Version kennt.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Quillbox is up to date</source>
        <translation>Quillbox ist auf dem neuesten Stand</translation>
    </message>
    <message>
        <source>No newer version has been announced.</source>
        <translation>Es wurde keine neuere Version angekündigt.</translation>
    </message>
    <message>
        <source>%1 is the newest version on offer.</source>
        <translation>%1 ist die neueste verfügbare Version.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>No newer version is known</source>
        <translation>Keine neuere Version bekannt</translation>
    </message>
    <message>
        <source>Version %1 is installed.</source>
        <translation>Version %1 ist installiert.</translation>
    </message>
    <message>
        <source>A new version of Quillbox is available</source>
        <translation>Eine neue Version von Quillbox ist verfügbar</translation>
    </message>
    <message>
        <source>Quillbox %1 is available</source>
        <translation>Quillbox %1 ist verfügbar</translation>
    </message>
    <message>
        <source>The system installs it, and may ask for your password.</source>
        <translation>Das System installiert sie und fragt eventuell nach Ihrem Passwort.</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>Installing the new version…</source>
        <translation>Die neue Version wird installiert…</translation>
    </message>
    <message>
        <source>Installing Quillbox %1…</source>
        <translation>Quillbox %1 wird installiert…</translation>
    </message>
    <message>
        <source>You can go on working meanwhile.</source>
        <translation>Sie können währenddessen weiterarbeiten.</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>The new version is installed</source>
        <translation>Die neue Version ist installiert</translation>
    </message>
    <message>
        <source>Quillbox %1 is installed</source>
        <translation>Quillbox %1 ist installiert</translation>
    </message>
    <message>
        <source>Restart Quillbox to use it.</source>
        <translation>Starten Sie Quillbox neu, um sie zu verwenden.</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Show in Software Center</source>
        <translation>In Softwareverwaltung zeigen</translation>
    </message>
    <message>
        <source>Install</source>
        <translation>Installieren</translation>
    </message>
    <message>
        <source>Restart Quillbox</source>
        <translation>Quillbox neu starten</translation>
    </message>
    <message>
        <source>It can be restarted once your clip is done.</source>
        <translation>Es kann neu gestartet werden, sobald Ihr Clip fertig ist.</translation>
    </message>
</context>
<context>
    <name>quillbox::UpdaterController</name>
    <message>
        <source>Couldn&apos;t look for updates</source>
        <translation>Die Suche nach Updates ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>Couldn&apos;t install the update</source>
        <translation>Das Update konnte nicht installiert werden</translation>
    </message>
</context>
</TS>
