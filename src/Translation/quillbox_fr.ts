<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>BackEnd</name>
    <message>
        <source>%1 is &quot;%2&quot;, which is none of %3</source>
        <translation>%1 vaut «&#xa0;%2&#xa0;», ce qui n&apos;est aucun de %3</translation>
    </message>
</context>
<context>
    <name>CaptureError</name>
    <message>
        <source>Pixels of the clip can&apos;t be read back: they are damaged</source>
        <translation>Impossible de relire les pixels du clip&#xa0;: ils sont endommagés</translation>
    </message>
    <message>
        <source>Screen capture is switched off by QUILLBOX_CAPTURE_BACKEND</source>
        <translation>La capture d&apos;écran est désactivée par QUILLBOX_CAPTURE_BACKEND</translation>
    </message>
    <message>
        <source>A long clip needs a file in %1: %2</source>
        <translation>Un long clip a besoin d&apos;un fichier dans %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>The disk is nearly full</source>
        <translation>Le disque est presque plein</translation>
    </message>
    <message>
        <source>The file of a long clip can&apos;t grow: %1</source>
        <translation>Le fichier dLe fichier d&apos;un long enregistrement neapos;un long clip ne peut pas grandir&#xa0;: %1</translation>
    </message>
    <message>
        <source>Pixels of the clip can&apos;t be read back: %1</source>
        <translation>Impossible de relire les pixels du clip&#xa0;: %1</translation>
    </message>
    <message>
        <source>The region lies outside the main display, which is %1×%2</source>
        <translation>La zone est en dehors de l&apos;écran principal, qui mesure %1×%2</translation>
    </message>
    <message>
        <source>Screen capture needs a free file descriptor</source>
        <translation>La capture d&apos;écran a besoin d&apos;un descripteur de fichier libre</translation>
    </message>
    <message>
        <source>Screen capture failed: %1</source>
        <translation>La capture d&apos;écran a échoué&#xa0;: %1</translation>
    </message>
    <message>
        <source>Screen capture was stopped before it began</source>
        <translation>La capture d&apos;écran a été arrêtée avant d&apos;avoir commencé</translation>
    </message>
    <message>
        <source>The X11 display refuses to show its pixels</source>
        <translation>L&apos;écran X11 refuse de livrer ses pixels</translation>
    </message>
    <message>
        <source>PipeWire, which carries the screen&apos;s pictures, can&apos;t be reached</source>
        <translation>PipeWire, qui transmet les images de l&apos;écran, est injoignable</translation>
    </message>
    <message>
        <source>PipeWire, which carries the screen&apos;s pictures, went away</source>
        <translation>PipeWire, qui transmet les images de l&apos;écran, s&apos;est arrêté</translation>
    </message>
    <message>
        <source>PipeWire does not deliver the screen&apos;s pictures: %1</source>
        <translation>PipeWire ne livre pas les images de l&apos;écran&#xa0;: %1</translation>
    </message>
    <message>
        <source>unknown error</source>
        <translation>erreur inconnue</translation>
    </message>
    <message>
        <source>The desktop no longer delivers the screen&apos;s pictures</source>
        <translation>Le bureau ne livre plus les images de l&apos;écran</translation>
    </message>
    <message>
        <source>The screen&apos;s pictures come in a format that was not asked for</source>
        <translation>Les images de l&apos;écran arrivent dans un format qui n&apos;a pas été demandé</translation>
    </message>
    <message>
        <source>PipeWire refuses to deliver the screen&apos;s pictures</source>
        <translation>PipeWire refuse de livrer les images de l&apos;écran</translation>
    </message>
    <message>
        <source>The desktop delivers no picture of the screen</source>
        <translation>Le bureau ne livre aucune image de l&apos;écran</translation>
    </message>
    <message>
        <source>The region lies outside the display, which is %1×%2</source>
        <translation>La zone est en dehors de l&apos;écran, qui mesure %1×%2</translation>
    </message>
    <message>
        <source>Screens of Wayland desktops are recorded through the desktop portal, and none answers: install xdg-desktop-portal and its back end for this desktop</source>
        <translation>Sous Wayland, l&apos;écran s&apos;enregistre par le portail de bureau, et aucun ne répond&#xa0;: installez xdg-desktop-portal et son moteur pour ce bureau</translation>
    </message>
    <message>
        <source>The desktop portal does not offer the screen: install PipeWire and the portal&apos;s back end for this desktop</source>
        <translation>Le portail de bureau ne propose pas l&apos;écran&#xa0;: installez PipeWire et le moteur du portail pour ce bureau</translation>
    </message>
    <message>
        <source>The desktop portal, which shows us the screen, went away</source>
        <translation>Le portail de bureau, qui montre l&apos;écran, s&apos;est arrêté</translation>
    </message>
    <message>
        <source>The desktop has ended the recording of its screen</source>
        <translation>Le bureau a mis fin à l&apos;enregistrement de son écran</translation>
    </message>
    <message>
        <source>The desktop portal&apos;s answer can&apos;t be understood</source>
        <translation>La réponse du portail de bureau est incompréhensible</translation>
    </message>
    <message>
        <source>The desktop portal refused: %1</source>
        <translation>Le portail de bureau a refusé&#xa0;: %1</translation>
    </message>
    <message>
        <source>Screens of Wayland desktops are recorded through the desktop portal, and there is no session bus to reach it</source>
        <translation>Sous Wayland, l&apos;écran s&apos;enregistre par le portail de bureau, et il n&apos;y a pas de bus de session pour l&apos;atteindre</translation>
    </message>
    <message>
        <source>The permission to record the screen was not given</source>
        <translation>L&apos;autorisation d&apos;enregistrer l&apos;écran n&apos;a pas été donnée</translation>
    </message>
    <message>
        <source>The desktop portal could not start to show us the screen</source>
        <translation>Le portail de bureau n&apos;a pas pu commencer à montrer l&apos;écran</translation>
    </message>
    <message>
        <source>What was chosen is not one monitor: record again and choose a single monitor, not all of them</source>
        <translation>Ce qui a été choisi n&apos;est pas un seul écran : enregistrez de nouveau et choisissez un seul écran, pas tous</translation>
    </message>
    <message>
        <source>The monitor that is recorded was switched off or unplugged</source>
        <translation>L&apos;écran enregistré a été éteint ou débranché</translation>
    </message>
</context>
<context>
    <name>Clipboard</name>
    <message>
        <source>QUILLBOX_CLIPBOARD_BACKEND is &quot;%1&quot;</source>
        <translation>QUILLBOX_CLIPBOARD_BACKEND vaut «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>There is no display</source>
        <translation>Il n&apos;y a pas d&apos;écran</translation>
    </message>
    <message>
        <source>The desktop is an X11 display</source>
        <translation>Le bureau est un écran X11</translation>
    </message>
    <message>
        <source>The toolkit shows its windows on &quot;%1&quot;</source>
        <translation>Le toolkit affiche ses fenêtres sur «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>The compositor offers %1</source>
        <translation>Le compositeur propose %1</translation>
    </message>
    <message>
        <source>The compositor lets only a window that has the keyboard set the clipboard</source>
        <translation>Le compositeur ne laisse écrire dans le presse-papiers que la fenêtre qui a le clavier</translation>
    </message>
</context>
<context>
    <name>ControlCommand</name>
    <message>
        <source>the answer can&apos;t be written to standard output</source>
        <translation>impossible d&apos;écrire la réponse sur la sortie standard</translation>
    </message>
    <message>
        <source>a clip is being made already; quillbox stop ends a recording</source>
        <translation>un clip est déjà en cours&#xa0;; quillbox stop termine un enregistrement</translation>
    </message>
    <message>
        <source>Quillbox is not running; start it with quillbox</source>
        <translation>Quillbox n&apos;est pas lancé&#xa0;; démarrez-le avec quillbox</translation>
    </message>
</context>
<context>
    <name>CutOffRecordings</name>
    <message>
        <source>Another program has this recording, or it is gone</source>
        <translation>Un autre programme a cet enregistrement, ou il n&apos;existe plus</translation>
    </message>
    <message>
        <source>This recording is damaged; nothing can be made of it</source>
        <translation>Cet enregistrement est endommagé&#xa0;; on ne peut rien en faire</translation>
    </message>
</context>
<context>
    <name>DesktopApplication</name>
    <message>
        <source>%1. quillbox record and encode work from a terminal</source>
        <translation>%1. quillbox record et encode fonctionnent depuis un terminal</translation>
    </message>
    <message>
        <source>QT_QPA_PLATFORM is &quot;%1&quot;, which is none of %2; unset it</source>
        <translation>QT_QPA_PLATFORM vaut « %1 », qui n’est aucun de %2&#xa0;; retirez-la</translation>
    </message>
</context>
<context>
    <name>DisplayError</name>
    <message>
        <source>DISPLAY is not set, so there is no X11 display to record</source>
        <translation>DISPLAY n&apos;est pas défini, il n&apos;y a donc pas d&apos;écran X11 à enregistrer</translation>
    </message>
    <message>
        <source>The X11 display %1 can&apos;t be connected to</source>
        <translation>Impossible de se connecter à l&apos;écran X11 %1</translation>
    </message>
    <message>
        <source>The screen&apos;s colours can&apos;t be read (depth %1); only true-colour screens can be recorded</source>
        <translation>Impossible de lire les couleurs de l&apos;écran (profondeur %1)&#xa0;; seuls les écrans en vraies couleurs peuvent être enregistrés</translation>
    </message>
    <message>
        <source>The connection to the X11 display was lost</source>
        <translation>La connexion à l&apos;écran X11 a été perdue</translation>
    </message>
</context>
<context>
    <name>Doctor</name>
    <message>
        <source>no display</source>
        <translation>aucun écran</translation>
    </message>
    <message>
        <source>the report can&apos;t be written to standard output</source>
        <translation>impossible d&apos;écrire le rapport sur la sortie standard</translation>
    </message>
    <message>
        <source>What this desktop has for Quillbox</source>
        <translation>Ce que ce bureau offre à Quillbox</translation>
    </message>
    <message>
        <source>What is missing comes, on Debian and Ubuntu, with</source>
        <translation>Ce qui manque s&apos;installe, sous Debian et Ubuntu, avec</translation>
    </message>
    <message>
        <source>The screen can be recorded.</source>
        <translation>L&apos;écran peut être enregistré.</translation>
    </message>
    <message>
        <source>The screen can&apos;t be recorded.</source>
        <translation>L&apos;écran ne peut pas être enregistré.</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>Icône</translation>
    </message>
    <message>
        <source>a StatusNotifierItem watcher with a host</source>
        <translation>un observateur de StatusNotifierItem avec hôte</translation>
    </message>
    <message>
        <source>a StatusNotifierItem watcher without a host</source>
        <translation>un observateur de StatusNotifierItem sans hôte</translation>
    </message>
    <message>
        <source>a tray of the X server&apos;s kind (XEmbed)</source>
        <translation>une zone de notification du serveur X (XEmbed)</translation>
    </message>
    <message>
        <source>a StatusNotifierItem</source>
        <translation>un StatusNotifierItem</translation>
    </message>
    <message>
        <source>This desktop shows no tray icons</source>
        <translation>Ce bureau n&apos;affiche pas d&apos;icônes de notification</translation>
    </message>
    <message>
        <source>quillbox show opens the panel</source>
        <translation>quillbox show ouvre le panneau</translation>
    </message>
    <message>
        <source>bind quillbox toggle to a key in the desktop&apos;s settings</source>
        <translation>associez quillbox toggle à une touche dans les paramètres du bureau</translation>
    </message>
    <message>
        <source>Hotkey</source>
        <translation>Raccourci</translation>
    </message>
    <message>
        <source>no other program holds it</source>
        <translation>aucun autre programme ne l&apos;occupe</translation>
    </message>
    <message>
        <source>it is held, as Quillbox runs</source>
        <translation>il est occupé, puisque Quillbox est lancé</translation>
    </message>
    <message>
        <source>There is no X server that has the keys</source>
        <translation>Il n&apos;y a pas de serveur X qui ait les touches</translation>
    </message>
    <message>
        <source>the portal&apos;s GlobalShortcuts, version %1</source>
        <translation>GlobalShortcuts du portail, version %1</translation>
    </message>
    <message>
        <source>There is no session bus</source>
        <translation>Il n&apos;y a pas de bus de session</translation>
    </message>
    <message>
        <source>There is no desktop portal</source>
        <translation>Il n&apos;y a pas de portail de bureau</translation>
    </message>
    <message>
        <source>The portal has no global shortcuts on this desktop</source>
        <translation>Le portail n&apos;a pas de raccourcis globaux sur ce bureau</translation>
    </message>
    <message>
        <source>The desktop portal does not answer</source>
        <translation>Le portail de bureau ne répond pas</translation>
    </message>
    <message>
        <source>You refused it when the desktop asked</source>
        <translation>Vous l&apos;avez refusé quand le bureau l&apos;a demandé</translation>
    </message>
    <message>
        <source>to be asked again, remove %1 and start Quillbox anew; or bind quillbox toggle to a key in the desktop&apos;s settings</source>
        <translation>pour que la question soit posée de nouveau, supprimez %1 et relancez Quillbox&#xa0;; ou associez quillbox toggle à une touche dans les paramètres du bureau</translation>
    </message>
    <message>
        <source>The hotkey is switched off by QUILLBOX_HOTKEY_BACKEND</source>
        <translation>Le raccourci est désactivé par QUILLBOX_HOTKEY_BACKEND</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Mises à jour</translation>
    </message>
    <message>
        <source>There is no system bus</source>
        <translation>Il n&apos;y a pas de bus système</translation>
    </message>
    <message>
        <source>There is no PackageKit</source>
        <translation>PackageKit n&apos;est pas là</translation>
    </message>
    <message>
        <source>update Quillbox the way it was installed</source>
        <translation>mettez Quillbox à jour comme il a été installé</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Écran</translation>
    </message>
    <message>
        <source>the X server %1</source>
        <translation>le serveur X %1</translation>
    </message>
    <message>
        <source>extensions %1</source>
        <translation>extensions %1</translation>
    </message>
    <message>
        <source>the server lacks %1: recording is slower, has no pointer, or knows no monitors</source>
        <translation>il manque au serveur %1&#xa0;: l&apos;enregistrement est plus lent, n&apos;a pas de pointeur ou ignore les moniteurs</translation>
    </message>
    <message>
        <source>start it inside a desktop session; quillbox encode needs none</source>
        <translation>lancez-le dans une session de bureau&#xa0;; quillbox encode s&apos;en passe</translation>
    </message>
    <message>
        <source>monitors</source>
        <translation>moniteurs</translation>
    </message>
    <message>
        <source>windows</source>
        <translation>fenêtres</translation>
    </message>
    <message>
        <source>virtual monitors</source>
        <translation>moniteurs virtuels</translation>
    </message>
    <message>
        <source>the portal&apos;s ScreenCast, version %1: %2</source>
        <translation>ScreenCast du portail, version %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>a desktop portal</source>
        <translation>un portail de bureau</translation>
    </message>
    <message>
        <source>the desktop portal and PipeWire</source>
        <translation>le portail de bureau et PipeWire</translation>
    </message>
    <message>
        <source>the desktop will ask which monitor to show</source>
        <translation>le bureau demandera quel moniteur montrer</translation>
    </message>
    <message>
        <source>the desktop may remember which monitor to show</source>
        <translation>le bureau se souvient peut-être du moniteur à montrer</translation>
    </message>
    <message>
        <source>systemctl --user restart xdg-desktop-portal may help</source>
        <translation>systemctl --user restart xdg-desktop-portal aidera peut-être</translation>
    </message>
    <message>
        <source>The desktop portal shows the screen through PipeWire, which does not run</source>
        <translation>Le portail de bureau montre l&apos;écran par PipeWire, qui n&apos;est pas lancé</translation>
    </message>
    <message>
        <source>log in again when it is installed: the portal looks for its pieces only once</source>
        <translation>reconnectez-vous après l&apos;installation&#xa0;: le portail ne cherche ses éléments qu&apos;une fois</translation>
    </message>
    <message>
        <source>The X server does not answer</source>
        <translation>Le serveur X ne répond pas</translation>
    </message>
    <message>
        <source>a clipboard manager, which keeps clips when Quillbox ends</source>
        <translation>un gestionnaire de presse-papiers, qui garde les clips quand Quillbox se termine</translation>
    </message>
    <message>
        <source>no clipboard manager: a clip stays while Quillbox runs</source>
        <translation>pas de gestionnaire de presse-papiers&#xa0;: un clip reste tant que Quillbox est lancé</translation>
    </message>
    <message>
        <source>the X server&apos;s selection</source>
        <translation>la sélection du serveur X</translation>
    </message>
    <message>
        <source>There is no display</source>
        <translation>Il n&apos;y a pas d&apos;écran</translation>
    </message>
    <message>
        <source>the compositor&apos;s data control</source>
        <translation>le contrôle des données (data control) du compositeur</translation>
    </message>
    <message>
        <source>the toolkit</source>
        <translation>le toolkit</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>Presse-papiers</translation>
    </message>
    <message>
        <source>The display does not answer</source>
        <translation>L&apos;écran ne répond pas</translation>
    </message>
    <message>
        <source>File manager</source>
        <translation>Fichiers</translation>
    </message>
    <message>
        <source>a file manager on the bus (FileManager1)</source>
        <translation>un gestionnaire de fichiers sur le bus (FileManager1)</translation>
    </message>
    <message>
        <source>the portal&apos;s OpenURI, version %1</source>
        <translation>OpenURI du portail, version %1</translation>
    </message>
    <message>
        <source>the file manager, which selects the clip</source>
        <translation>le gestionnaire de fichiers, qui sélectionne le clip</translation>
    </message>
    <message>
        <source>the desktop portal, which opens the folder</source>
        <translation>le portail de bureau, qui ouvre le dossier</translation>
    </message>
    <message>
        <source>xdg-open, which opens the folder</source>
        <translation>xdg-open, qui ouvre le dossier</translation>
    </message>
    <message>
        <source>Nothing here opens folders</source>
        <translation>Rien ici n&apos;ouvre les dossiers</translation>
    </message>
    <message>
        <source>Quillbox was not installed as a package</source>
        <translation>Quillbox n’a pas été installé sous forme de paquet</translation>
    </message>
    <message>
        <source>Updates are switched off by QUILLBOX_UPDATE_BACKEND</source>
        <translation>Les mises à jour sont désactivées par QUILLBOX_UPDATE_BACKEND</translation>
    </message>
    <message>
        <source>to choose another monitor, remove %1</source>
        <translation>pour choisir un autre écran, supprimez %1</translation>
    </message>
    <message>
        <source>the desktop portal; the desktop&apos;s settings tell the keys</source>
        <translation>le portail de bureau&#xa0;; les touches figurent dans les paramètres du bureau</translation>
    </message>
    <message>
        <source>the desktop portal: %1</source>
        <translation>le portail de bureau&#xa0;: %1</translation>
    </message>
    <message>
        <source>start Quillbox and look again: only then the desktop tells what it has bound</source>
        <translation>démarrez Quillbox et regardez de nouveau&#xa0;: le bureau ne dit qu&apos;alors quelles touches il a associées</translation>
    </message>
    <message>
        <source>The desktop has bound no key for Quillbox</source>
        <translation>Le bureau n&apos;a associé aucune touche à Quillbox</translation>
    </message>
    <message>
        <source>PipeWire, which brings the screen&apos;s pictures, does not answer</source>
        <translation>PipeWire, qui apporte les images de l&apos;écran, ne répond pas</translation>
    </message>
    <message>
        <source>systemctl --user restart pipewire wireplumber may help</source>
        <translation>systemctl --user restart pipewire wireplumber aidera peut-être</translation>
    </message>
    <message>
        <source>PipeWire has no session manager, which connects its programs</source>
        <translation>PipeWire n&apos;a pas de gestionnaire de session, qui relie ses programmes</translation>
    </message>
    <message>
        <source>systemctl --user start wireplumber starts one that is installed</source>
        <translation>systemctl --user start wireplumber en lance un qui est installé</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>%1, but not %2</source>
        <translation>%1, mais pas %2</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>Enregistrements</translation>
    </message>
    <message numerus="yes">
        <source>%n recording(s) cut off before there was a clip</source>
        <translation>
            <numerusform>%n enregistrement interrompu avant d&apos;être un clip</numerusform>
            <numerusform>%n enregistrements interrompus avant d&apos;être un clip</numerusform>
        </translation>
    </message>
    <message>
        <source>quillbox recover makes clips of them, quillbox recover --discard removes them</source>
        <translation>quillbox recover en fait des clips, quillbox recover --discard les supprime</translation>
    </message>
    <message>
        <source>%1 of the X server</source>
        <translation>%1 du serveur X</translation>
    </message>
    <message>
        <source>Another program holds %1</source>
        <translation>Un autre programme occupe %1</translation>
    </message>
    <message>
        <source>the desktop portal, once it has been asked for %1</source>
        <translation>le portail de bureau, une fois que %1 lui a été demandé</translation>
    </message>
</context>
<context>
    <name>ErrorReport</name>
    <message>
        <source>there is not enough memory for these frames; use fewer or smaller ones</source>
        <translation>la mémoire ne suffit pas pour ces images&#xa0;; utilisez-en moins ou de plus petites</translation>
    </message>
    <message>
        <source>%1 is saved, but not what there is to say about it: %2</source>
        <translation>%1 est enregistré, mais pas ce qu’il y a à en dire : %2</translation>
    </message>
    <message>
        <source>warning: %1</source>
        <translation>avertissement : %1</translation>
    </message>
    <message>
        <source>this process may not open enough files; raise the limit with ulimit -n 64</source>
        <translation>ce processus ne peut pas ouvrir assez de fichiers ; relevez la limite avec ulimit -n 64</translation>
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
        <translation>Minuscule GIF de moins de 2 MB</translation>
    </message>
    <message>
        <source>GitHub</source>
        <translation>GitHub</translation>
    </message>
    <message>
        <source>GIF under 10 MB</source>
        <translation>GIF de moins de 10 MB</translation>
    </message>
    <message>
        <source>Docs</source>
        <translation>Docs</translation>
    </message>
    <message>
        <source>Crisp, balanced quality</source>
        <translation>Qualité nette et équilibrée</translation>
    </message>
</context>
<context>
    <name>FrameReadError</name>
    <message>
        <source>can&apos;t be opened: %1</source>
        <translation>ouverture impossible&#xa0;: %1</translation>
    </message>
    <message>
        <source>can&apos;t be read: %1</source>
        <translation>lecture impossible&#xa0;: %1</translation>
    </message>
    <message>
        <source>holds no frame; at least one is needed</source>
        <translation>ne contient aucune image&#xa0;; il en faut au moins une</translation>
    </message>
    <message>
        <source>frame %1 ends after %2 of %3 bytes; %4</source>
        <translation>l&apos;image %1 s&apos;arrête après %2 octets sur %3&#xa0;; %4</translation>
    </message>
    <message>
        <source>frame %1 is %2; each side must be 1 to 65535 pixels</source>
        <translation>l&apos;image %1 mesure %2&#xa0;; chaque côté doit avoir de 1 à 65535 pixels</translation>
    </message>
    <message>
        <source>frame %1 is %2, more than this machine&apos;s memory holds; use smaller frames</source>
        <translation>l&apos;image %1 mesure %2, plus que n&apos;en contient la mémoire de cette machine&#xa0;; utilisez des images plus petites</translation>
    </message>
    <message>
        <source>header has &quot;%1&quot;; expected %2</source>
        <translation>l&apos;en-tête contient «&#xa0;%1&#xa0;»&#xa0;; attendu&#xa0;: %2</translation>
    </message>
    <message>
        <source>frame %1 has &quot;%2&quot;; expected %3</source>
        <translation>l&apos;image %1 contient «&#xa0;%2&#xa0;»&#xa0;; attendu&#xa0;: %3</translation>
    </message>
    <message>
        <source>is not an image that can be read; expected PNG, JPEG, GIF or the like, a YUV4MPEG2 stream, or --raw WxH for raw RGBA frames</source>
        <translation>n&apos;est pas une image lisible&#xa0;; attendu&#xa0;: PNG, JPEG, GIF ou semblable, un flux YUV4MPEG2, ou --raw WxH pour des images RGBA brutes</translation>
    </message>
    <message>
        <source>frame %1 can&apos;t be decoded: %2</source>
        <translation>impossible de décoder l&apos;image %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>plays for %1 s, more than %2 s; use --source-fps to take its frames one each</source>
        <translation>dure %1 s, plus de %2 s&#xa0;; --source-fps prend ses images une à une</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>is --raw %1 its true size?</source>
        <translation>--raw %1 est-elle sa vraie taille&#xa0;?</translation>
    </message>
    <message>
        <source>a rate like F30:1 or F30000:1001</source>
        <translation>une cadence comme F30:1 ou F30000:1001</translation>
    </message>
    <message>
        <source>a YUV4MPEG2 stream (or --raw WxH for raw RGBA frames)</source>
        <translation>un flux YUV4MPEG2 (ou --raw WxH pour des images RGBA brutes)</translation>
    </message>
    <message>
        <source>a whole number of pixels</source>
        <translation>un nombre entier de pixels</translation>
    </message>
    <message>
        <source>the frame size in its tags W and H</source>
        <translation>la taille d&apos;image dans ses champs W et H</translation>
    </message>
    <message>
        <source>XCOLORRANGE=FULL or XCOLORRANGE=LIMITED</source>
        <translation>XCOLORRANGE=FULL ou XCOLORRANGE=LIMITED</translation>
    </message>
    <message>
        <source>FRAME and its picture; the stream is cut off</source>
        <translation>FRAME et son image&#xa0;; le flux est tronqué</translation>
    </message>
    <message>
        <source>FRAME; the frame before it has another size</source>
        <translation>FRAME&#xa0;; l&apos;image précédente a une autre taille</translation>
    </message>
    <message>
        <source>write the stream again</source>
        <translation>écrivez à nouveau le flux</translation>
    </message>
    <message>
        <source>became shorter while it was being read; run the command again</source>
        <translation>a raccourci pendant sa lecture&#xa0;; relancez la commande</translation>
    </message>
    <message>
        <source>is a %1 image, for which a plugin is missing; install qt6-image-formats-plugins (Fedora: qt6-qtimageformats, Arch: qt6-imageformats)</source>
        <translation>est une image %1, pour laquelle il manque un greffon ; installez qt6-image-formats-plugins (Fedora : qt6-qtimageformats, Arch : qt6-imageformats)</translation>
    </message>
    <message>
        <source>is a video; have FFmpeg take its pictures: ffmpeg -i VIDEO -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o OUT.gif -</source>
        <translation>est une vidéo ; faites-en extraire les images par FFmpeg : ffmpeg -i VIDEO -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o OUT.gif -</translation>
    </message>
    <message>
        <source>is cut off: not even its first frame is whole; get the file again</source>
        <translation>est tronqué : même sa première image n’est pas entière ; récupérez à nouveau le fichier</translation>
    </message>
    <message numerus="yes">
        <source>is cut off after %n whole frame(s); get the file again, or --keep-going</source>
        <translation>
            <numerusform>est tronqué après %n image entière ; récupérez à nouveau le fichier, ou --keep-going</numerusform>
            <numerusform>est tronqué après %n images entières ; récupérez à nouveau le fichier, ou --keep-going</numerusform>
        </translation>
    </message>
    <message>
        <source>frame %1 is %2, but the first is %3; without --strict it is fitted into that</source>
        <translation>l’image %1 fait %2, mais la première %3 ; sans --strict elle y est ajustée</translation>
    </message>
    <message>
        <source>frames are %1, so --crop names a part that they don&apos;t have</source>
        <translation>les images font %1 ; --crop désigne donc une partie qu’elles n’ont pas</translation>
    </message>
    <message>
        <source>no image is there; name a folder with images, or a pattern that some fit</source>
        <translation>aucune image ne s’y trouve ; nommez un dossier avec des images, ou un motif auquel certaines répondent</translation>
    </message>
    <message>
        <source>C420, C422, C444, C411 or Cmono of 8 to 16 bits (with FFmpeg: -pix_fmt yuv444p)</source>
        <translation>C420, C422, C444, C411 ou Cmono de 8 à 16 bits (avec FFmpeg : -pix_fmt yuv444p)</translation>
    </message>
    <message>
        <source>at least one frame in ten minutes</source>
        <translation>au moins une image en dix minutes</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>Examples:
  quillbox record --region 0,0,800x600 --duration 3
  quillbox record --select --copy --duration 3
  quillbox record --region 100,50,640x480 -o demo.gif     (Ctrl-C stops and saves)</source>
        <translation>Exemples&#xa0;:
  quillbox record --region 0,0,800x600 --duration 3
  quillbox record --select --copy --duration 3
  quillbox record --region 100,50,640x480 -o demo.gif     (Ctrl-C arrête et enregistre)</translation>
    </message>
    <message>
        <source>Where the GIF is meant for: its limits on size, width and colours</source>
        <translation>Ce à quoi le GIF est destiné&#xa0;: ses limites de taille, de largeur et de couleurs</translation>
    </message>
    <message>
        <source>The GIF to write, - for standard output (default: %1)</source>
        <translation>Le GIF à écrire, - pour la sortie standard (par défaut&#xa0;: %1)</translation>
    </message>
    <message>
        <source>Describe the result as a JSON object</source>
        <translation>Décrire le résultat par un objet JSON</translation>
    </message>
    <message>
        <source>Replace OUT if it exists</source>
        <translation>Remplacer OUT s&apos;il existe</translation>
    </message>
    <message>
        <source>Let the user drag out a region and record it</source>
        <translation>Faire tracer une zone et l&apos;enregistrer</translation>
    </message>
    <message>
        <source>Stop recording, save and copy the clip, and print where it is</source>
        <translation>Arrêter l&apos;enregistrement, enregistrer et copier le clip, et afficher où il est</translation>
    </message>
    <message>
        <source>Stop a recording, or begin one</source>
        <translation>Arrêter un enregistrement, ou en commencer un</translation>
    </message>
    <message>
        <source>Open the panel</source>
        <translation>Ouvrir le panneau</translation>
    </message>
    <message>
        <source>Print what the application is doing</source>
        <translation>Afficher ce que fait l&apos;application</translation>
    </message>
    <message>
        <source>End the application</source>
        <translation>Quitter l&apos;application</translation>
    </message>
    <message>
        <source>Example:
  quillbox %1</source>
        <translation>Exemple&#xa0;:
  quillbox %1</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Utilisation</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPTIONS</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>COMMANDE</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>Arguments</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Options</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>OBLIGATOIRE</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>Commandes</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>Afficher cette aide et quitter</translation>
    </message>
    <message>
        <source>%1 (of the running application)</source>
        <translation>%1 (dans l&apos;application en cours)</translation>
    </message>
    <message>
        <source>Answer with a JSON object</source>
        <translation>Répondre par un objet JSON</translation>
    </message>
    <message>
        <source>Print the version</source>
        <translation>Afficher la version</translation>
    </message>
    <message>
        <source>Turn images, YUV4MPEG2 or raw frames into a GIF</source>
        <translation>Convertir des images, du YUV4MPEG2 ou des images brutes en GIF</translation>
    </message>
    <message>
        <source>beside the first INPUT, with the extension gif</source>
        <translation>à côté du premier INPUT, avec l&apos;extension gif</translation>
    </message>
    <message>
        <source>Record a region of the screen as a GIF</source>
        <translation>Enregistrer une zone de l&apos;écran en GIF</translation>
    </message>
    <message>
        <source>Left, top and size of the region, points of the main display</source>
        <translation>Gauche, haut et taille de la zone, en points de l&apos;écran principal</translation>
    </message>
    <message>
        <source>Drag the region out on the screen</source>
        <translation>Tracer la zone sur l&apos;écran</translation>
    </message>
    <message>
        <source>Stop after so many seconds (default: Ctrl-C stops)</source>
        <translation>S&apos;arrêter après ce nombre de secondes (par défaut&#xa0;: Ctrl-C arrête)</translation>
    </message>
    <message>
        <source>a dated file in the folder Quillbox of your videos</source>
        <translation>un fichier daté dans le dossier Quillbox de vos vidéos</translation>
    </message>
    <message>
        <source>Put the clip on the clipboard, too</source>
        <translation>Mettre aussi le clip dans le presse-papiers</translation>
    </message>
    <message>
        <source>List the clips made lately, newest first</source>
        <translation>Lister les derniers clips, le plus récent d&apos;abord</translation>
    </message>
    <message>
        <source>Print them as a JSON array</source>
        <translation>Les afficher sous forme de tableau JSON</translation>
    </message>
    <message>
        <source>Tell what this desktop has to record, copy and so on, and what is missing</source>
        <translation>Dire ce que ce bureau a pour enregistrer, copier, etc., et ce qui manque</translation>
    </message>
    <message>
        <source>Print it as a JSON object</source>
        <translation>L&apos;afficher sous forme d&apos;objet JSON</translation>
    </message>
    <message>
        <source>The exit status is 0 where the screen can be recorded, else 1.</source>
        <translation>Le code de retour est 0 si l&apos;écran peut être enregistré, sinon 1.</translation>
    </message>
    <message>
        <source>Show every change, as exactly as the preset&apos;s size and width allow</source>
        <translation>Montrer chaque changement, aussi exactement que la taille et la largeur du préréglage le permettent</translation>
    </message>
    <message>
        <source>With --precise: the size instead of the preset&apos;s</source>
        <translation>Avec --precise : la taille au lieu de celle du préréglage</translation>
    </message>
    <message>
        <source>With --precise: the width instead of the preset&apos;s</source>
        <translation>Avec --precise : la largeur au lieu de celle du préréglage</translation>
    </message>
    <message>
        <source>With --precise: the most pictures a second (default: 30)</source>
        <translation>Avec --precise : le nombre maximal d’images par seconde (par défaut : 30)</translation>
    </message>
    <message>
        <source>With --precise: the most colours of a picture (default: 256)</source>
        <translation>Avec --precise : le nombre maximal de couleurs d’une image (par défaut : 256)</translation>
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
        <translation>Transforme une partie de l&apos;écran, ou un clip, en un petit GIF animé.
Sans commande&#xa0;: l&apos;application dans la zone de notification, d&apos;où tout peut se faire à la souris.

Exemples&#xa0;:
  quillbox                      (démarre l&apos;application, ou la montre)
  quillbox toggle               (pour un raccourci clavier&#xa0;: enregistrer, puis arrêter et copier)
Enregistrer une zone depuis un script&#xa0;:
  quillbox record --region 100,100,640x480 --duration 3 --force -o demo.gif
Encoder les images d&apos;un autre programme&#xa0;:
  ffmpeg -v error -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - \
    | quillbox encode --matrix bt709 -o clip.gif -
Enregistrer un programme en intégration continue, sans écran&#xa0;:
  xvfb-run -s &quot;-screen 0 1280x720x24&quot; \
    sh -c &quot;my-program &amp; quillbox record --region 0,0,1280x720 --duration 3 -o program.gif&quot;

Les commandes ci-dessous ont d&apos;autres exemples&#xa0;: quillbox encode --help</translation>
    </message>
    <message>
        <source>Examples:
  quillbox encode -o steps.gif step1.png step2.png step3.png --source-fps 1
  quillbox encode -o steps.gif step%02d.png --delay 1.5
  ffmpeg -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o clip.gif -
  quillbox encode --raw 1280x720 --preset github capture.rgba</source>
        <translation>Exemples :
  quillbox encode -o steps.gif step1.png step2.png step3.png --source-fps 1
  quillbox encode -o steps.gif step%02d.png --delay 1.5
  ffmpeg -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o clip.gif -
  quillbox encode --raw 1280x720 --preset github capture.rgba</translation>
    </message>
    <message>
        <source>Print neither progress nor the result, unless as JSON</source>
        <translation>N’afficher ni la progression ni le résultat, sauf en JSON</translation>
    </message>
    <message>
        <source>Shrink wider frames to so many pixels; with --precise, instead of the preset&apos;s width</source>
        <translation>Réduire les images plus larges à tant de pixels ; avec --precise, au lieu de la largeur du préréglage</translation>
    </message>
    <message>
        <source>the text can&apos;t be written to standard output</source>
        <translation>le texte ne peut pas être écrit sur la sortie standard</translation>
    </message>
    <message>
        <source>Images, one frame each, a folder of them, or a pattern like f%03d.png; or one animated image; or one YUV4MPEG2 stream; - for standard input</source>
        <translation>Des images, une par vue, un dossier d’images ou un motif comme f%03d.png ; ou une image animée ; ou un flux YUV4MPEG2 ; - pour l’entrée standard</translation>
    </message>
    <message>
        <source>Frames per second of the input, like 12, 0.5 or 30000/1001 (default: its own; else 1 for several images, 30 for raw frames)</source>
        <translation>Images par seconde de l’entrée, comme 12, 0.5 ou 30000/1001 (par défaut : les siennes ; sinon 1 pour plusieurs images, 30 pour des images brutes)</translation>
    </message>
    <message>
        <source>Show each frame of the input for so many seconds; the other way to say --source-fps</source>
        <translation>Montrer chaque image de l’entrée tant de secondes ; l’autre façon de dire --source-fps</translation>
    </message>
    <message>
        <source>INPUT is raw frames of this size, without padding</source>
        <translation>INPUT est fait d’images brutes de cette taille, sans remplissage</translation>
    </message>
    <message>
        <source>Take this part of each frame: left, top and size</source>
        <translation>Prendre cette partie de chaque image : gauche, haut et taille</translation>
    </message>
    <message>
        <source>Play the GIF so many times (default: 0, for ever)</source>
        <translation>Jouer le GIF tant de fois (par défaut : 0, sans fin)</translation>
    </message>
    <message>
        <source>Encode with so many threads (default: one a core)</source>
        <translation>Encoder avec tant de fils d’exécution (par défaut : un par cœur)</translation>
    </message>
    <message>
        <source>By which standard the YUV4MPEG2 stream has its colours (default: bt709 from 720 rows on, else bt601)</source>
        <translation>Selon quelle norme le flux YUV4MPEG2 a ses couleurs (par défaut : bt709 dès 720 lignes, sinon bt601)</translation>
    </message>
    <message>
        <source>Refuse images of another size than the first instead of fitting them into it</source>
        <translation>Refuser les images d’une autre taille que la première au lieu de les y ajuster</translation>
    </message>
    <message>
        <source>Leave out images and frames that are damaged or cut off, and say how many</source>
        <translation>Laisser de côté les images endommagées ou tronquées, et dire combien</translation>
    </message>
    <message>
        <source>Print the help of a command</source>
        <translation>Afficher l’aide d’une commande</translation>
    </message>
    <message>
        <source>The command; none for all of them</source>
        <translation>La commande ; aucune pour toutes</translation>
    </message>
    <message>
        <source>Make clips of recordings that the program&apos;s end cut off</source>
        <translation>Faire des clips des enregistrements que la fin du programme a interrompus</translation>
    </message>
    <message>
        <source>Only list them: when each began, and how long it is</source>
        <translation>Seulement les lister : début et durée de chacun</translation>
    </message>
    <message>
        <source>Remove them instead</source>
        <translation>Les supprimer à la place</translation>
    </message>
    <message>
        <source>Make another clip of what was recorded last, save and copy it</source>
        <translation>Faire un autre clip du dernier enregistrement, l’enregistrer dans un fichier et le copier</translation>
    </message>
    <message>
        <source>Keep every change in this clip</source>
        <translation>Garder chaque changement dans ce clip</translation>
    </message>
    <message>
        <source>Where the GIF is meant for (default: as for the clip before)</source>
        <translation>À quoi le GIF est destiné (par défaut : comme le clip précédent)</translation>
    </message>
    <message>
        <source>Mix colours that the palette lacks; not with --precise</source>
        <translation>Mélanger les couleurs qui manquent à la palette&#xa0;; pas avec --precise</translation>
    </message>
    <message>
        <source>With --raw: the bytes of a pixel</source>
        <translation>Avec --raw&#xa0;: les octets d’un pixel</translation>
    </message>
    <message>
        <source>What shows through transparent pixels (default: white; raw frames are opaque unless this is given)</source>
        <translation>Ce qui se voit à travers les pixels transparents (par défaut&#xa0;: blanc&#xa0;; sans cette option, les images brutes sont opaques)</translation>
    </message>
</context>
<context>
    <name>HistoryCommand</name>
    <message>
        <source>the list can&apos;t be written to standard output</source>
        <translation>impossible d&apos;écrire la liste sur la sortie standard</translation>
    </message>
</context>
<context>
    <name>HotkeyNotice</name>
    <message>
        <source>This desktop has given Quillbox no hotkey. Bind “quillbox toggle” to a key in its settings.</source>
        <translation>Ce bureau n&apos;a donné aucun raccourci à Quillbox. Associez «&#xa0;quillbox toggle&#xa0;» à une touche dans ses paramètres.</translation>
    </message>
    <message>
        <source>This desktop has no global hotkeys. Bind “quillbox toggle” to a key in its settings.</source>
        <translation>Ce bureau n&apos;a pas de raccourcis globaux. Associez «&#xa0;quillbox toggle&#xa0;» à une touche dans ses paramètres.</translation>
    </message>
    <message>
        <source>No hotkey, as you decided. “quillbox toggle” can be bound to a key; “quillbox doctor” tells how to be asked again.</source>
        <translation>Pas de raccourci, comme vous en avez décidé. «&#xa0;quillbox toggle&#xa0;» peut être associé à une touche&#xa0;; «&#xa0;quillbox doctor&#xa0;» dit comment être sollicité de nouveau.</translation>
    </message>
    <message>
        <source>The desktop may ask whether Quillbox may have this hotkey.</source>
        <translation>Le bureau demandera peut-être si Quillbox peut avoir ce raccourci.</translation>
    </message>
    <message>
        <source>The desktop&apos;s settings tell the keys, and can change them.</source>
        <translation>Les touches figurent dans les paramètres du bureau, où elles peuvent être changées.</translation>
    </message>
    <message>
        <source>The desktop has set the keys to: %1. Its settings can change them.</source>
        <translation>Le bureau a choisi ces touches&#xa0;: %1. Elles peuvent être changées dans ses paramètres.</translation>
    </message>
    <message>
        <source>Super + Shift + %1</source>
        <translation>Super + Maj + %1</translation>
    </message>
    <message>
        <source>Another program uses %1. Quillbox gets it as soon as it is free; “quillbox toggle” can be bound to any other key.</source>
        <translation>Un autre programme utilise %1. Quillbox aura ces touches dès qu&apos;elles seront libres&#xa0;; «&#xa0;quillbox toggle&#xa0;» peut être associé à toute autre touche.</translation>
    </message>
    <message>
        <source>⌘ is the Super key: press %1 in any program.</source>
        <translation>⌘ est la touche Super&#xa0;: appuyez sur %1 dans n&apos;importe quel programme.</translation>
    </message>
    <message>
        <source>Press “Record Region”, not ⌘⇧2.</source>
        <translation>Cliquez sur «&#xa0;Enregistrer une zone&#xa0;»&#xa0;: ⌘⇧2 ne fait rien ici.</translation>
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
            <numerusform>%1 ; la %n image qui précède est dans le clip</numerusform>
            <numerusform>%1 ; les %n images qui précèdent sont dans le clip</numerusform>
        </translation>
    </message>
    <message>
        <source>images left out: %1 of %2; %3</source>
        <translation>images laissées de côté : %1 sur %2 ; %3</translation>
    </message>
</context>
<context>
    <name>OutputFileError</name>
    <message>
        <source>the file exists already; use --force to replace it</source>
        <translation>le fichier existe déjà&#xa0;; --force le remplace</translation>
    </message>
    <message>
        <source>there is no folder %1; create it first</source>
        <translation>il n&apos;y a pas de dossier %1&#xa0;; créez-le d&apos;abord</translation>
    </message>
    <message>
        <source>it is a folder; name a file</source>
        <translation>c&apos;est un dossier&#xa0;; indiquez un fichier</translation>
    </message>
    <message>
        <source>it is an input itself; name another file with -o</source>
        <translation>c&apos;est lui-même une entrée&#xa0;; indiquez un autre fichier avec -o</translation>
    </message>
    <message>
        <source>no space left; free some or save elsewhere</source>
        <translation>il n&apos;y a plus de place&#xa0;; libérez-en ou enregistrez ailleurs</translation>
    </message>
    <message>
        <source>%1: can&apos;t be saved: %2</source>
        <translation>%1&#xa0;: enregistrement impossible&#xa0;: %2</translation>
    </message>
    <message>
        <source>it is larger than a file may be here (ulimit -f)</source>
        <translation>il est plus grand qu’un fichier ne peut l’être ici (ulimit -f)</translation>
    </message>
</context>
<context>
    <name>ParserMessages</name>
    <message>
        <source>%1 is required</source>
        <translation>%1 est obligatoire</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>Argument inattendu&#xa0;: %1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>Arguments inattendus&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1: 1 required %2 missing</source>
        <translation>%1&#xa0;: il manque la valeur %2</translation>
    </message>
</context>
<context>
    <name>ProgressLine</name>
    <message>
        <source>reading</source>
        <translation>lecture</translation>
    </message>
    <message>
        <source>saving</source>
        <translation>enregistrement du fichier</translation>
    </message>
    <message numerus="yes">
        <source>attempt %1: %n colour(s), %2 %</source>
        <translation>
            <numerusform>essai %1&#xa0;: %n couleur, %2 %</numerusform>
            <numerusform>essai %1&#xa0;: %n couleurs, %2 %</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>recording %1 s, %n frame(s); Ctrl-C stops</source>
        <translation>
            <numerusform>enregistrement&#xa0;: %1 s, %n image&#xa0;; Ctrl-C arrête</numerusform>
            <numerusform>enregistrement&#xa0;: %1 s, %n images&#xa0;; Ctrl-C arrête</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>palette %1 of %2: %n colour(s), %3 %</source>
        <translation>
            <numerusform>palette %1 sur %2 : %n couleur, %3 %</numerusform>
            <numerusform>palette %1 sur %2 : %n couleurs, %3 %</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; Ctrl-C again ends this without a clip</source>
        <translation>%1&#xa0;; Ctrl-C encore une fois termine sans clip</translation>
    </message>
</context>
<context>
    <name>QuillboxApp</name>
    <message>
        <source>A new version of Quillbox is available</source>
        <translation>Une nouvelle version de Quillbox est disponible</translation>
    </message>
    <message>
        <source>Quillbox %1 is available</source>
        <translation>Quillbox %1 est disponible</translation>
    </message>
    <message>
        <source>“Check for Updates…” in the panel installs it.</source>
        <translation>«&#xa0;Rechercher des mises à jour…&#xa0;» dans le panneau l&apos;installe.</translation>
    </message>
    <message>
        <source>The recording goes on</source>
        <translation>L&apos;enregistrement continue</translation>
    </message>
    <message>
        <source>It could not be prepared for the clip meanwhile. Making the clip will take longer.</source>
        <translation>La préparation du clip en parallèle a échoué. La création du clip prendra plus de temps.</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>Notifications</translation>
    </message>
    <message>
        <source>Quillbox was running twice</source>
        <translation>Quillbox était lancé deux fois</translation>
    </message>
    <message>
        <source>The desktop&apos;s session bus had been restarted. The one that was started first has ended; its clips are saved.</source>
        <translation>Le bus de session du bureau avait été redémarré. Celui qui a été lancé en premier s&apos;est arrêté ; ses clips sont enregistrés.</translation>
    </message>
</context>
<context>
    <name>RecordCommand</name>
    <message>
        <source>There is no display to record. Set DISPLAY to an X11 display, such as :0</source>
        <translation>Il n&apos;y a pas d&apos;écran à enregistrer. Donnez à DISPLAY un écran X11, comme&#xa0;:0</translation>
    </message>
    <message>
        <source>Couldn&apos;t start recording: %1.</source>
        <translation>Impossible de démarrer l&apos;enregistrement&#xa0;: %1.</translation>
    </message>
    <message>
        <source>The recording ended early: %1. What was recorded is kept.</source>
        <translation>L&apos;enregistrement s&apos;est terminé prématurément&#xa0;: %1. Ce qui a été enregistré est conservé.</translation>
    </message>
    <message>
        <source>the clip stays on the clipboard until something else is copied; Ctrl-C ends this program</source>
        <translation>le clip reste dans le presse-papiers jusqu&apos;à la prochaine copie&#xa0;; Ctrl-C termine ce programme</translation>
    </message>
    <message>
        <source>nothing was selected, so nothing was recorded</source>
        <translation>rien n&apos;a été sélectionné, donc rien n&apos;a été enregistré</translation>
    </message>
    <message>
        <source>%1. The desktop application does it: start quillbox first.</source>
        <translation>%1. L&apos;application de bureau le fait&#xa0;: lancez d&apos;abord quillbox.</translation>
    </message>
    <message>
        <source>%1.</source>
        <translation>%1.</translation>
    </message>
    <message>
        <source>the clip gets onto the clipboard when the panel is opened: quillbox show</source>
        <translation>le clip arrive dans le presse-papiers à l&apos;ouverture du panneau&#xa0;: quillbox show</translation>
    </message>
    <message>
        <source>the clip is saved, but it couldn&apos;t be put on the clipboard</source>
        <translation>le clip est enregistré, mais n&apos;a pas pu être mis dans le presse-papiers</translation>
    </message>
    <message>
        <source>the clip could not be copied, so nothing was recorded. %1</source>
        <translation>le clip ne pourrait pas être copié, donc rien n&apos;a été enregistré. %1</translation>
    </message>
    <message>
        <source>warning: only %1x%2 of the region&apos;s %3x%4 are on the main display; the rest is not in the clip</source>
        <translation>avertissement&#xa0;: seuls %1x%2 de la zone de %3x%4 sont sur l’écran principal&#xa0;; le reste n’est pas dans le clip</translation>
    </message>
    <message>
        <source>warning: the clip may begin with remains of the selection: the desktop took more than two seconds to remove them from the screen</source>
        <translation>avertissement&#xa0;: le clip peut commencer par des restes de la sélection&#xa0;: le bureau a mis plus de deux secondes à les retirer de l&apos;écran</translation>
    </message>
</context>
<context>
    <name>RecordingCoordinator</name>
    <message>
        <source>an unknown error</source>
        <translation>erreur inconnue</translation>
    </message>
    <message>
        <source>There is no display to record</source>
        <translation>Il n&apos;y a pas d&apos;écran à enregistrer</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>There is not enough memory for this recording</source>
        <translation>La mémoire ne suffit pas pour cet enregistrement</translation>
    </message>
    <message>
        <source>Couldn&apos;t start recording: %1</source>
        <translation>Impossible de démarrer l&apos;enregistrement&#xa0;: %1</translation>
    </message>
    <message>
        <source>No frames captured.</source>
        <translation>Aucune image capturée.</translation>
    </message>
    <message>
        <source>Couldn&apos;t save clip: %1</source>
        <translation>Impossible d&apos;enregistrer le clip&#xa0;: %1</translation>
    </message>
    <message>
        <source>Region too large to encode (%1×%2). Max is %3 per side.</source>
        <translation>Zone trop grande pour être encodée (%1×%2). Le maximum est de %3 par côté.</translation>
    </message>
</context>
<context>
    <name>RecoverCommand</name>
    <message>
        <source>no recording was cut off; there is nothing to recover</source>
        <translation>aucun enregistrement n&apos;a été interrompu&#xa0;; il n&apos;y a rien à récupérer</translation>
    </message>
    <message>
        <source>several recordings were cut off; leave out -o to make a clip of each</source>
        <translation>plusieurs enregistrements ont été interrompus&#xa0;; omettez -o pour faire un clip de chacun</translation>
    </message>
</context>
<context>
    <name>ResultReport</name>
    <message>
        <source>%1: %2, %3, %4, %5 fps, %6 s, %7</source>
        <translation>%1&#xa0;: %2, %3, %4, %5 i/s, %6 s, %7</translation>
    </message>
    <message numerus="yes">
        <source>%n frame(s)</source>
        <translation>
            <numerusform>%n image</numerusform>
            <numerusform>%n images</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n colour(s)</source>
        <translation>
            <numerusform>%n couleur</numerusform>
            <numerusform>%n couleurs</numerusform>
        </translation>
    </message>
    <message>
        <source>dithered</source>
        <translation>avec tramage</translation>
    </message>
    <message>
        <source>not dithered</source>
        <translation>sans tramage</translation>
    </message>
    <message>
        <source>; over the %1 MB budget of %2: record less, or a smaller part of the screen</source>
        <translation>; au-delà des %1 MB prévus pour %2&#xa0;: enregistrez moins longtemps, ou une plus petite partie de l&apos;écran</translation>
    </message>
    <message>
        <source>; over the %1 of --max-size: record less, or a smaller part of the screen</source>
        <translation> ; dépasse les %1 de --max-size : enregistrez moins, ou une plus petite partie de l’écran</translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: at most %2 a second, and changes of less than 1 % merge (--precise keeps them)</source>
        <translation>
            <numerusform>; %n image, %1 gardée : au plus %2 par seconde, et les changements de moins de 1 % sont fondus (--precise les garde)</numerusform>
            <numerusform>; %n images, %1 gardées : au plus %2 par seconde, et les changements de moins de 1 % sont fondus (--precise les garde)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: changes of less than 1 % merge (--precise keeps them)</source>
        <translation>
            <numerusform>; %n image, %1 gardée : les changements de moins de 1 % sont fondus (--precise les garde)</numerusform>
            <numerusform>; %n images, %1 gardées : les changements de moins de 1 % sont fondus (--precise les garde)</numerusform>
        </translation>
    </message>
    <message>
        <source>; over the %1 MB budget of %2: try --max-width, --crop, fewer frames or another --preset</source>
        <translation> ; dépasse la limite de %1 Mo de %2 : essayez --max-width, --crop, moins d’images ou un autre --preset</translation>
    </message>
    <message>
        <source>picture %1 dB less exact</source>
        <translation>image %1 dB moins exacte</translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) left out</source>
        <translation>
            <numerusform>%n changement omis</numerusform>
            <numerusform>%n changements omis</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 % narrower</source>
        <translation>%1 % moins large</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>; to fit: %1</source>
        <translation>&#xa0;; pour tenir dans la taille&#xa0;: %1</translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: at most %2 a second (--max-fps)</source>
        <translation>
            <numerusform>&#xa0;; %n image, %1 gardées&#xa0;: au plus %2 par seconde (--max-fps)</numerusform>
            <numerusform>&#xa0;; %n images, %1 gardées&#xa0;: au plus %2 par seconde (--max-fps)</numerusform>
        </translation>
    </message>
    <message>
        <source>, every change kept</source>
        <translation>, chaque changement gardé</translation>
    </message>
    <message>
        <source>%1: %2, %3, %4, %5 s</source>
        <translation>%1&#xa0;: %2, %3, %4, %5 s</translation>
    </message>
    <message>
        <source>; over the %1 of --max-size: try --max-width, --crop or fewer frames</source>
        <translation>&#xa0;; au-delà des %1 de --max-size&#xa0;: essayez --max-width, --crop ou moins d’images</translation>
    </message>
</context>
<context>
    <name>StatusReport</name>
    <message numerus="yes">
        <source>%n recording(s) cut off; quillbox recover makes clips</source>
        <translation>
            <numerusform>%n enregistrement interrompu&#xa0;; quillbox recover en fait un clip</numerusform>
            <numerusform>%n enregistrements interrompus&#xa0;; quillbox recover en fait des clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Streams</name>
    <message>
        <source>standard output</source>
        <translation>sortie standard</translation>
    </message>
    <message>
        <source>standard error</source>
        <translation>sortie d&apos;erreur standard</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>entrée standard</translation>
    </message>
</context>
<context>
    <name>UpdaterController</name>
    <message>
        <source>The system&apos;s software service can&apos;t be reached.</source>
        <translation>Le service de logiciels du système est injoignable.</translation>
    </message>
    <message>
        <source>The system&apos;s software service ended while it was working.</source>
        <translation>Le service de logiciels du système s&apos;est arrêté en plein travail.</translation>
    </message>
    <message>
        <source>This copy of Quillbox was not installed as a package, so the system can&apos;t update it.</source>
        <translation>Cette copie de Quillbox n&apos;a pas été installée sous forme de paquet, le système ne peut donc pas la mettre à jour.</translation>
    </message>
    <message>
        <source>None of this computer&apos;s package sources offers Quillbox.</source>
        <translation>Aucune des sources de paquets de cet ordinateur ne propose Quillbox.</translation>
    </message>
    <message>
        <source>You were not allowed to do this, or no password was given.</source>
        <translation>Vous n&apos;y étiez pas autorisé, ou aucun mot de passe n&apos;a été donné.</translation>
    </message>
    <message>
        <source>The package sources can&apos;t be reached. Is this computer online?</source>
        <translation>Les sources de paquets sont injoignables. Cet ordinateur est-il en ligne&#xa0;?</translation>
    </message>
    <message>
        <source>The new version isn&apos;t signed by anybody this system trusts, so it was not installed.</source>
        <translation>La nouvelle version n&apos;est signée par personne en qui ce système a confiance&#xa0;; elle n&apos;a donc pas été installée.</translation>
    </message>
    <message>
        <source>Another program is installing software. Try again once it is done.</source>
        <translation>Un autre programme installe des logiciels. Réessayez quand il aura terminé.</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>La mise à jour a été annulée.</translation>
    </message>
    <message>
        <source>The system reported success, but the old version is still installed.</source>
        <translation>Le système a annoncé un succès, mais l&apos;ancienne version est toujours installée.</translation>
    </message>
    <message>
        <source>The system&apos;s software service didn&apos;t say why.</source>
        <translation>Le service de logiciels du système n&apos;a pas dit pourquoi.</translation>
    </message>
    <message>
        <source>The system&apos;s software service says: %1</source>
        <translation>Le service de logiciels du système indique&#xa0;: %1</translation>
    </message>
    <message>
        <source>The package sources can&apos;t be reached, so there may be a newer version still.</source>
        <translation>Les sources de paquets sont injoignables&#xa0;; il existe peut-être une version plus récente.</translation>
    </message>
    <message>
        <source>The package sources were not asked anew, so there may be a newer version still.</source>
        <translation>Les sources de paquets n&apos;ont pas été réinterrogées&#xa0;; il existe peut-être une version plus récente.</translation>
    </message>
    <message>
        <source>The package sources couldn&apos;t be read anew, so there may be a newer version still.</source>
        <translation>Les sources de paquets n&apos;ont pas pu être relues&#xa0;; il existe peut-être une version plus récente.</translation>
    </message>
    <message>
        <source>Updates are switched off by QUILLBOX_UPDATE_BACKEND.</source>
        <translation>Les mises à jour sont désactivées par QUILLBOX_UPDATE_BACKEND.</translation>
    </message>
</context>
<context>
    <name>Usage</name>
    <message>
        <source>standard output is a terminal, which can&apos;t show a GIF; redirect it, or name a file with -o</source>
        <translation>la sortie standard est un terminal, qui ne peut pas afficher un GIF&#xa0;; redirigez-la, ou indiquez un fichier avec -o</translation>
    </message>
    <message>
        <source>--preset: there is no preset &quot;%1&quot;; use slack, github or docs</source>
        <translation>--preset&#xa0;: le préréglage «&#xa0;%1&#xa0;» n&apos;existe pas&#xa0;; utilisez slack, github ou docs</translation>
    </message>
    <message>
        <source>-o: the name is empty; name a file, or - for standard output</source>
        <translation>-o&#xa0;: le nom est vide&#xa0;; indiquez un fichier, ou - pour la sortie standard</translation>
    </message>
    <message>
        <source>--dither: there is no &quot;%1&quot;; use auto, always or never</source>
        <translation>--dither&#xa0;: «&#xa0;%1&#xa0;» n&apos;existe pas&#xa0;; utilisez auto, always ou never</translation>
    </message>
    <message>
        <source>--raw: &quot;%1&quot; is not a size; write it like 1280x720</source>
        <translation>--raw&#xa0;: «&#xa0;%1&#xa0;» n&apos;est pas une taille&#xa0;; écrivez-la comme 1280x720</translation>
    </message>
    <message>
        <source>name the region with --region X,Y,WxH, or drag it out with --select</source>
        <translation>indiquez la zone avec --region X,Y,WxH, ou tracez-la avec --select</translation>
    </message>
    <message>
        <source>--region: &quot;%1&quot; is not a region; write it like 100,50,640x480 (left, top, size)</source>
        <translation>--region&#xa0;: «&#xa0;%1&#xa0;» n&apos;est pas une zone&#xa0;; écrivez-la comme 100,50,640x480 (gauche, haut, taille)</translation>
    </message>
    <message>
        <source>--copy: the clipboard needs a file; leave out -o - or --copy</source>
        <translation>--copy&#xa0;: le presse-papiers a besoin d&apos;un fichier&#xa0;; retirez -o - ou --copy</translation>
    </message>
    <message>
        <source>--duration: &quot;%1&quot; is not a number of seconds above 0, at most 86400</source>
        <translation>--duration&#xa0;: «&#xa0;%1&#xa0;» n&apos;est pas un nombre de secondes supérieur à 0 et d&apos;au plus 86400</translation>
    </message>
    <message>
        <source>%1; see %2</source>
        <translation>%1&#xa0;; voir %2</translation>
    </message>
    <message>
        <source>this INPUT gives the GIF no name; add one, like -o clip.gif</source>
        <translation>cet INPUT ne donne pas de nom au GIF&#xa0;; ajoutez-en un, comme -o clip.gif</translation>
    </message>
    <message>
        <source>%1 is a YUV4MPEG2 stream; give it alone</source>
        <translation>%1 est un flux YUV4MPEG2&#xa0;; donnez-le seul</translation>
    </message>
    <message>
        <source>--raw: give one INPUT with all frames, one after another</source>
        <translation>--raw&#xa0;: donnez un seul INPUT avec toutes les images à la suite</translation>
    </message>
    <message>
        <source>standard input must be the only INPUT</source>
        <translation>l&apos;entrée standard doit être le seul INPUT</translation>
    </message>
    <message>
        <source>%1 belongs to --precise; add that</source>
        <translation>%1 va avec --precise ; ajoutez-le</translation>
    </message>
    <message>
        <source>--max-size: &quot;%1&quot; is not a size; write it like 750K or 1.5M</source>
        <translation>--max-size : « %1 » n’est pas une taille ; écrivez-la comme 750K ou 1.5M</translation>
    </message>
    <message>
        <source>--max-width: use a number of pixels from %1 to %2</source>
        <translation>--max-width : utilisez un nombre de pixels de %1 à %2</translation>
    </message>
    <message>
        <source>--max-fps: use a number of pictures a second from %1 to %2</source>
        <translation>--max-fps : utilisez un nombre d’images par seconde de %1 à %2</translation>
    </message>
    <message>
        <source>--colors: use a number of colours from %1 to %2</source>
        <translation>--colors : utilisez un nombre de couleurs de %1 à %2</translation>
    </message>
    <message>
        <source>-o: &quot;%1&quot; is no name for a GIF; let it end in .gif</source>
        <translation>-o : « %1 » n’est pas un nom pour un GIF ; faites-le finir par .gif</translation>
    </message>
    <message>
        <source>--crop: &quot;%1&quot; is not a part; write it like 10,20,640x480 (left, top, size)</source>
        <translation>--crop : « %1 » n’est pas une partie ; écrivez-la comme 10,20,640x480 (gauche, haut, taille)</translation>
    </message>
    <message>
        <source>--matrix: there is no &quot;%1&quot;; use bt601, bt709 or bt2020</source>
        <translation>--matrix : « %1 » n’existe pas ; utilisez bt601, bt709 ou bt2020</translation>
    </message>
    <message>
        <source>--background: &quot;%1&quot; is not a colour; write it like #FFFFFF, white or black</source>
        <translation>--background : « %1 » n’est pas une couleur ; écrivez-la comme #FFFFFF, white ou black</translation>
    </message>
    <message>
        <source>--raw-format: there is no &quot;%1&quot;; use rgba, bgra, rgb or bgr</source>
        <translation>--raw-format : « %1 » n’existe pas ; utilisez rgba, bgra, rgb ou bgr</translation>
    </message>
    <message>
        <source>--source-fps: &quot;%1&quot; is not a number of frames per second; write it like 12, 29.97 or 30000/1001, 1000 at most</source>
        <translation>--source-fps : « %1 » n’est pas un nombre d’images par seconde ; écrivez-le comme 12, 29.97 ou 30000/1001, au plus 1000</translation>
    </message>
    <message>
        <source>--delay and --source-fps say the same; use one of them</source>
        <translation>--delay et --source-fps disent la même chose ; utilisez l’un des deux</translation>
    </message>
    <message>
        <source>--delay: &quot;%1&quot; is not a number of seconds from 0.001 to 655.35</source>
        <translation>--delay : « %1 » n’est pas un nombre de secondes de 0.001 à 655.35</translation>
    </message>
    <message>
        <source>--raw: &quot;%1&quot; can&apos;t be; each side must be 1 to 65535 pixels</source>
        <translation>--raw : « %1 » est impossible ; chaque côté doit faire de 1 à 65535 pixels</translation>
    </message>
    <message>
        <source>--threads: use a number from %1 to %2</source>
        <translation>--threads : utilisez un nombre de %1 à %2</translation>
    </message>
    <message>
        <source>--loop: use a number from %1 to %2</source>
        <translation>--loop : utilisez un nombre de %1 à %2</translation>
    </message>
    <message>
        <source>help: there is no command &quot;%1&quot;; see quillbox --help</source>
        <translation>help : il n’y a pas de commande « %1 » ; voir quillbox --help</translation>
    </message>
    <message>
        <source>QUILLBOX_RECORDING_MEMORY is &quot;%1&quot;; make it a whole number of megabytes, or unset it</source>
        <translation>QUILLBOX_RECORDING_MEMORY vaut « %1 » ; donnez-lui un nombre entier de mégaoctets, ou retirez-la</translation>
    </message>
    <message>
        <source>standard input is a terminal; pipe an image, a YUV4MPEG2 stream or raw frames into it</source>
        <translation>l’entrée standard est un terminal ; dirigez-y une image, un flux YUV4MPEG2 ou des images brutes</translation>
    </message>
    <message>
        <source>--list and --discard can&apos;t be had at once; use one of them</source>
        <translation>--list et --discard ne vont pas ensemble&#xa0;; utilisez l&apos;une des deux</translation>
    </message>
    <message>
        <source>--region and --select were both given; use one of them to say what to record</source>
        <translation>--region et --select sont donnés tous les deux&#xa0;; n’utilisez que l’un des deux pour dire quoi enregistrer</translation>
    </message>
    <message>
        <source>--dither: --precise mixes no colours; leave out one of them</source>
        <translation>--dither&#xa0;: --precise ne mélange pas de couleurs&#xa0;; retirez l’un des deux</translation>
    </message>
    <message>
        <source>%1 belongs to --raw; add that</source>
        <translation>%1 va avec --raw&#xa0;; ajoutez-le</translation>
    </message>
    <message>
        <source>--matrix: raw frames are red, green and blue; leave it out</source>
        <translation>--matrix&#xa0;: les images brutes sont en rouge, vert et bleu&#xa0;; retirez-la</translation>
    </message>
    <message>
        <source>--background: %1 frames have no transparency; leave it out</source>
        <translation>--background&#xa0;: les images %1 n’ont pas de transparence&#xa0;; retirez-la</translation>
    </message>
    <message>
        <source>QUILLBOX_JOURNAL is &quot;%1&quot;; set it to off to keep no recording on disk, or unset it</source>
        <translation>QUILLBOX_JOURNAL vaut « %1 »&#xa0;; mettez off pour ne garder aucun enregistrement sur le disque, ou retirez-la</translation>
    </message>
</context>
<context>
    <name>quillbox::ApplicationService</name>
    <message>
        <source>Nothing is being recorded</source>
        <translation>Aucun enregistrement n&apos;est en cours</translation>
    </message>
    <message>
        <source>A clip is being made already</source>
        <translation>Un clip est déjà en cours de création</translation>
    </message>
    <message>
        <source>Nothing has been recorded since Quillbox was started</source>
        <translation>Rien n’a été enregistré depuis le démarrage de Quillbox</translation>
    </message>
    <message>
        <source>There is no preset “%1”</source>
        <translation>Il n’y a pas de préréglage « %1 »</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipActions</name>
    <message>
        <source>No program opens the clip.</source>
        <translation>Aucun programme n’ouvre le clip.</translation>
    </message>
    <message>
        <source>The clip can&apos;t be read.</source>
        <translation>Le clip est illisible.</translation>
    </message>
    <message>
        <source>The clip could not be moved to the trash.</source>
        <translation>Le clip n’a pas pu être mis à la corbeille.</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipNotices</name>
    <message>
        <source>The recording ended early</source>
        <translation>L&apos;enregistrement s&apos;est terminé prématurément</translation>
    </message>
    <message>
        <source>%1. What was recorded is kept.</source>
        <translation>%1. Ce qui a été enregistré est conservé.</translation>
    </message>
    <message>
        <source>The clip is ready to paste</source>
        <translation>Le clip est prêt à être collé</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Afficher</translation>
    </message>
    <message>
        <source>No clip was made</source>
        <translation>Aucun clip n’a été créé</translation>
    </message>
    <message>
        <source>The clip may begin with remains of the selection</source>
        <translation>Le clip peut commencer par des restes de la sélection</translation>
    </message>
    <message>
        <source>The desktop took more than two seconds to remove them from the screen.</source>
        <translation>Le bureau a mis plus de deux secondes à les retirer de l&apos;écran.</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipOffers</name>
    <message numerus="yes">
        <source>%1 of %2 · shows %3 of %Ln recorded picture(s)</source>
        <translation>
            <numerusform>%1 sur %2 · montre %3 image sur %Ln enregistrée</numerusform>
            <numerusform>%1 sur %2 · montre %3 images sur %Ln enregistrées</numerusform>
        </translation>
    </message>
    <message>
        <source>Make it sharper</source>
        <translation>Le rendre plus net</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Save elsewhere…</source>
        <translation>Enregistrer ailleurs…</translation>
    </message>
    <message>
        <source>Again as %1</source>
        <translation>Refaire pour %1</translation>
    </message>
    <message>
        <source>%1 over the %2 budget of %3</source>
        <translation>%1 au-dessus de la limite de %2 de %3</translation>
    </message>
    <message numerus="yes">
        <source> · shows %1 of %Ln recorded picture(s)</source>
        <translation>
            <numerusform> · montre %1 image sur %Ln enregistrée</numerusform>
            <numerusform> · montre %1 images sur %Ln enregistrées</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>quillbox::ClipPreview</name>
    <message>
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 pixels</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipResult</name>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Afficher</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipSaveDialog</name>
    <message>
        <source>Save Clip</source>
        <translation>Enregistrer le clip</translation>
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
        <translation>Un enregistrement a été interrompu et est endommagé ; rien ne peut en être tiré.</translation>
    </message>
    <message>
        <source>A recording from %1 was cut off (%2 s).</source>
        <translation>Un enregistrement de %1 a été interrompu (%2 s).</translation>
    </message>
    <message>
        <source>Make the clip</source>
        <translation>Créer le clip</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Discard for good</source>
        <translation>Supprimer définitivement</translation>
    </message>
    <message>
        <source>Keep it</source>
        <translation>Conserver</translation>
    </message>
</context>
<context>
    <name>quillbox::EdgeStop</name>
    <message>
        <source>Rest the pointer at the upper edge of the screen to see this again.</source>
        <translation>Laissez le pointeur au bord supérieur de l&apos;écran pour revoir ceci.</translation>
    </message>
</context>
<context>
    <name>quillbox::FirstUseCard</name>
    <message>
        <source>How it works</source>
        <translation>Comment ça marche</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>Compris</translation>
    </message>
    <message>
        <source>Quillbox waits in the tray of your desktop. Click its icon to open this panel.</source>
        <translation>Quillbox attend dans la zone de notification du bureau. Cliquez sur son icône pour ouvrir ce panneau.</translation>
    </message>
    <message>
        <source>This desktop has no tray for an icon. Start Quillbox again to open this panel.</source>
        <translation>Ce bureau n&apos;a pas de zone de notification pour une icône. Lancez à nouveau Quillbox pour ouvrir ce panneau.</translation>
    </message>
    <message>
        <source>Clips are copied, ready to paste, and saved in %1.</source>
        <translation>Les clips sont copiés, prêts à être collés, et enregistrés dans %1.</translation>
    </message>
    <message>
        <source>Press %1 (⌘⇧2) in any program and drag out a region to record it.</source>
        <translation>Appuyez sur %1 (⌘⇧2) dans n&apos;importe quel programme, puis tracez la zone à enregistrer.</translation>
    </message>
</context>
<context>
    <name>quillbox::HistoryNotice</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rétablir</translation>
    </message>
</context>
<context>
    <name>quillbox::HistoryPanel</name>
    <message>
        <source>Recent Clips</source>
        <translation>Clips récents</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Effacer</translation>
    </message>
    <message>
        <source>No clips yet</source>
        <translation>Aucun clip pour l&apos;instant</translation>
    </message>
    <message>
        <source>Your recorded clips will show up here.</source>
        <translation>Vos clips enregistrés apparaîtront ici.</translation>
    </message>
    <message>
        <source>The files are still there.</source>
        <translation>Les fichiers sont toujours là.</translation>
    </message>
    <message>
        <source>Move “%1” to the trash?</source>
        <translation>Mettre « %1 » à la corbeille ?</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>Mettre à la corbeille</translation>
    </message>
</context>
<context>
    <name>quillbox::HistoryRow</name>
    <message>
        <source>clip</source>
        <translation>clip</translation>
    </message>
    <message>
        <source>· %1s</source>
        <translation>· %1 s</translation>
    </message>
    <message>
        <source>Reveal in Finder</source>
        <translation>Afficher dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Afficher</translation>
    </message>
    <message>
        <source>Move to Trash…</source>
        <translation>Mettre à la corbeille…</translation>
    </message>
</context>
<context>
    <name>quillbox::MonitorNotice</name>
    <message>
        <source>Recording is possible on %1 only. Drag there.</source>
        <translation>L&apos;enregistrement n&apos;est possible que sur %1. Faites glisser là-bas.</translation>
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
        <translation>Copier</translation>
    </message>
    <message>
        <source>Puts the clip on the clipboard</source>
        <translation>Met le clip dans le presse-papiers</translation>
    </message>
    <message>
        <source>The clip is not on the clipboard yet.</source>
        <translation>Le clip n&apos;est pas encore dans le presse-papiers.</translation>
    </message>
</context>
<context>
    <name>quillbox::PortalHotkey</name>
    <message>
        <source>Record a region of the screen</source>
        <translation>Enregistrer une zone de l&apos;écran</translation>
    </message>
</context>
<context>
    <name>quillbox::RecorderHUD</name>
    <message>
        <source>Press ⌘⇧2 or Record to capture a region.</source>
        <translation>Pour capturer une zone&#xa0;: ⌘⇧2 ou «&#xa0;Enregistrer une zone&#xa0;».</translation>
    </message>
    <message>
        <source>Drag to select a region…</source>
        <translation>Tracez une zone…</translation>
    </message>
    <message>
        <source>Recording…</source>
        <translation>Enregistrement…</translation>
    </message>
    <message>
        <source>Optimizing GIF…</source>
        <translation>Optimisation du GIF…</translation>
    </message>
    <message>
        <source>Copied — %1 · %2</source>
        <translation>Copié — %1 · %2</translation>
    </message>
    <message>
        <source>Quillbox</source>
        <translation>Quillbox</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Préréglage</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Finish now</source>
        <translation>Terminer</translation>
    </message>
    <message>
        <source>Ends with the smallest file made so far</source>
        <translation>Termine avec le plus petit fichier obtenu jusqu&apos;ici</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Rechercher des mises à jour…</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Stop &amp; Copy</source>
        <translation>Arrêter et copier</translation>
    </message>
    <message>
        <source>Record Region</source>
        <translation>Enregistrer une zone</translation>
    </message>
    <message>
        <source>Keep every change</source>
        <translation>Garder chaque changement</translation>
    </message>
    <message>
        <source>Shows all that changed, as sharp as the size allows</source>
        <translation>Montre tout ce qui a changé, aussi net que la taille le permet</translation>
    </message>
</context>
<context>
    <name>quillbox::SelectionWindow</name>
    <message>
        <source>Select a region</source>
        <translation>Sélectionner une zone</translation>
    </message>
    <message>
        <source>Drag to record · Esc cancels</source>
        <translation>Faites glisser pour enregistrer · Échap annule</translation>
    </message>
</context>
<context>
    <name>quillbox::SettingsView</name>
    <message>
        <source>Capture</source>
        <translation>Capture</translation>
    </message>
    <message>
        <source>Global hotkey</source>
        <translation>Raccourci global</translation>
    </message>
    <message>
        <source>⌘⇧2</source>
        <translation>⌘⇧2</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>Confidentialité</translation>
    </message>
    <message>
        <source>Everything stays on your Mac. No cloud, no telemetry, no account.</source>
        <translation>Tout reste sur votre ordinateur. Ni cloud, ni télémétrie, ni compte.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
</context>
<context>
    <name>quillbox::StopControl</name>
    <message>
        <source>Recording — Quillbox</source>
        <translation>Enregistrement — Quillbox</translation>
    </message>
    <message>
        <source>Stop &amp; Copy</source>
        <translation>Arrêter et copier</translation>
    </message>
</context>
<context>
    <name>quillbox::TrayIcon</name>
    <message>
        <source>Open Quillbox</source>
        <translation>Ouvrir Quillbox</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Stop &amp;&amp; Copy</source>
        <translation>Arrêter et copier</translation>
    </message>
    <message>
        <source>Record Region</source>
        <translation>Enregistrer une zone</translation>
    </message>
    <message>
        <source>Quillbox — Recording…</source>
        <translation>Quillbox — Enregistrement…</translation>
    </message>
    <message>
        <source>Keep every change</source>
        <translation>Garder chaque changement</translation>
    </message>
</context>
<context>
    <name>quillbox::TraylessStop</name>
    <message>
        <source>The screen is being recorded</source>
        <translation>L&apos;écran est en cours d&apos;enregistrement</translation>
    </message>
    <message>
        <source>“Stop &amp; Copy” ends the recording.</source>
        <translation>«&#xa0;Arrêter et copier&#xa0;» termine l&apos;enregistrement.</translation>
    </message>
    <message>
        <source>Stop &amp; Copy</source>
        <translation>Arrêter et copier</translation>
    </message>
</context>
<context>
    <name>quillbox::UpdateView</name>
    <message>
        <source>Looking for updates…</source>
        <translation>Recherche de mises à jour…</translation>
    </message>
    <message>
        <source>The system is asked whether it knows a newer version.</source>
        <translation>Le système est interrogé pour savoir s&apos;il connaît une version plus récente.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Quillbox is up to date</source>
        <translation>Quillbox est à jour</translation>
    </message>
    <message>
        <source>No newer version has been announced.</source>
        <translation>Aucune version plus récente n&apos;a été annoncée.</translation>
    </message>
    <message>
        <source>%1 is the newest version on offer.</source>
        <translation>%1 est la version la plus récente disponible.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>No newer version is known</source>
        <translation>Aucune version plus récente connue</translation>
    </message>
    <message>
        <source>Version %1 is installed.</source>
        <translation>La version %1 est installée.</translation>
    </message>
    <message>
        <source>A new version of Quillbox is available</source>
        <translation>Une nouvelle version de Quillbox est disponible</translation>
    </message>
    <message>
        <source>Quillbox %1 is available</source>
        <translation>Quillbox %1 est disponible</translation>
    </message>
    <message>
        <source>The system installs it, and may ask for your password.</source>
        <translation>Le système l&apos;installe, et peut demander votre mot de passe.</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Plus tard</translation>
    </message>
    <message>
        <source>Installing the new version…</source>
        <translation>Installation de la nouvelle version…</translation>
    </message>
    <message>
        <source>Installing Quillbox %1…</source>
        <translation>Installation de Quillbox %1…</translation>
    </message>
    <message>
        <source>You can go on working meanwhile.</source>
        <translation>Vous pouvez continuer à travailler pendant ce temps.</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Masquer</translation>
    </message>
    <message>
        <source>The new version is installed</source>
        <translation>La nouvelle version est installée</translation>
    </message>
    <message>
        <source>Quillbox %1 is installed</source>
        <translation>Quillbox %1 est installé</translation>
    </message>
    <message>
        <source>Restart Quillbox to use it.</source>
        <translation>Redémarrez Quillbox pour l&apos;utiliser.</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Mise à jour</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Show in Software Center</source>
        <translation>Voir dans la logithèque</translation>
    </message>
    <message>
        <source>Install</source>
        <translation>Installer</translation>
    </message>
    <message>
        <source>Restart Quillbox</source>
        <translation>Redémarrer Quillbox</translation>
    </message>
    <message>
        <source>It can be restarted once your clip is done.</source>
        <translation>Il pourra être redémarré une fois votre clip terminé.</translation>
    </message>
</context>
<context>
    <name>quillbox::UpdaterController</name>
    <message>
        <source>Couldn&apos;t look for updates</source>
        <translation>Impossible de rechercher des mises à jour</translation>
    </message>
    <message>
        <source>Couldn&apos;t install the update</source>
        <translation>Impossible d&apos;installer la mise à jour</translation>
    </message>
</context>
</TS>
