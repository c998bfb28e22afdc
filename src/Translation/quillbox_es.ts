<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>BackEnd</name>
    <message>
        <source>%1 is &quot;%2&quot;, which is none of %3</source>
        <translation>%1 vale «%2», que no es ninguno de %3</translation>
    </message>
</context>
<context>
    <name>CaptureError</name>
    <message>
        <source>Pixels of the clip can&apos;t be read back: they are damaged</source>
        <translation>No se pueden volver a leer los píxeles del clip: están dañados</translation>
    </message>
    <message>
        <source>Screen capture is switched off by QUILLBOX_CAPTURE_BACKEND</source>
        <translation>La captura de pantalla está desactivada por QUILLBOX_CAPTURE_BACKEND</translation>
    </message>
    <message>
        <source>A long clip needs a file in %1: %2</source>
        <translation>Un clip largo necesita un archivo en %1: %2</translation>
    </message>
    <message>
        <source>The disk is nearly full</source>
        <translation>El disco está casi lleno</translation>
    </message>
    <message>
        <source>The file of a long clip can&apos;t grow: %1</source>
        <translation>El archivo de un clip largo no puede crecer: %1</translation>
    </message>
    <message>
        <source>Pixels of the clip can&apos;t be read back: %1</source>
        <translation>No se pueden volver a leer los píxeles del clip: %1</translation>
    </message>
    <message>
        <source>The region lies outside the main display, which is %1×%2</source>
        <translation>El área queda fuera de la pantalla principal, que mide %1×%2</translation>
    </message>
    <message>
        <source>Screen capture needs a free file descriptor</source>
        <translation>La captura de pantalla necesita un descriptor de archivo libre</translation>
    </message>
    <message>
        <source>Screen capture failed: %1</source>
        <translation>La captura de pantalla ha fallado: %1</translation>
    </message>
    <message>
        <source>Screen capture was stopped before it began</source>
        <translation>La captura de pantalla se detuvo antes de empezar</translation>
    </message>
    <message>
        <source>The X11 display refuses to show its pixels</source>
        <translation>La pantalla X11 se niega a mostrar sus píxeles</translation>
    </message>
    <message>
        <source>PipeWire, which carries the screen&apos;s pictures, can&apos;t be reached</source>
        <translation>No se puede contactar con PipeWire, que transmite las imágenes de la pantalla</translation>
    </message>
    <message>
        <source>PipeWire, which carries the screen&apos;s pictures, went away</source>
        <translation>PipeWire, que transmite las imágenes de la pantalla, ha dejado de funcionar</translation>
    </message>
    <message>
        <source>PipeWire does not deliver the screen&apos;s pictures: %1</source>
        <translation>PipeWire no entrega las imágenes de la pantalla: %1</translation>
    </message>
    <message>
        <source>unknown error</source>
        <translation>error desconocido</translation>
    </message>
    <message>
        <source>The desktop no longer delivers the screen&apos;s pictures</source>
        <translation>El escritorio ya no entrega las imágenes de la pantalla</translation>
    </message>
    <message>
        <source>The screen&apos;s pictures come in a format that was not asked for</source>
        <translation>Las imágenes de la pantalla llegan en un formato que no se ha pedido</translation>
    </message>
    <message>
        <source>PipeWire refuses to deliver the screen&apos;s pictures</source>
        <translation>PipeWire se niega a entregar las imágenes de la pantalla</translation>
    </message>
    <message>
        <source>The desktop delivers no picture of the screen</source>
        <translation>El escritorio no entrega ninguna imagen de la pantalla</translation>
    </message>
    <message>
        <source>The region lies outside the display, which is %1×%2</source>
        <translation>El área queda fuera de la pantalla, que mide %1×%2</translation>
    </message>
    <message>
        <source>Screens of Wayland desktops are recorded through the desktop portal, and none answers: install xdg-desktop-portal and its back end for this desktop</source>
        <translation>En Wayland la pantalla se graba a través del portal de escritorio, y ninguno responde: instale xdg-desktop-portal y su motor para este escritorio</translation>
    </message>
    <message>
        <source>The desktop portal does not offer the screen: install PipeWire and the portal&apos;s back end for this desktop</source>
        <translation>El portal de escritorio no ofrece la pantalla: instale PipeWire y el motor del portal para este escritorio</translation>
    </message>
    <message>
        <source>The desktop portal, which shows us the screen, went away</source>
        <translation>El portal de escritorio, que muestra la pantalla, ha dejado de funcionar</translation>
    </message>
    <message>
        <source>The desktop has ended the recording of its screen</source>
        <translation>El escritorio ha terminado la grabación de su pantalla</translation>
    </message>
    <message>
        <source>The desktop portal&apos;s answer can&apos;t be understood</source>
        <translation>No se entiende la respuesta del portal de escritorio</translation>
    </message>
    <message>
        <source>The desktop portal refused: %1</source>
        <translation>El portal de escritorio se ha negado: %1</translation>
    </message>
    <message>
        <source>Screens of Wayland desktops are recorded through the desktop portal, and there is no session bus to reach it</source>
        <translation>En Wayland la pantalla se graba a través del portal de escritorio, y no hay bus de sesión para llegar a él</translation>
    </message>
    <message>
        <source>The permission to record the screen was not given</source>
        <translation>No se ha dado permiso para grabar la pantalla</translation>
    </message>
    <message>
        <source>The desktop portal could not start to show us the screen</source>
        <translation>El portal de escritorio no ha podido empezar a mostrar la pantalla</translation>
    </message>
    <message>
        <source>What was chosen is not one monitor: record again and choose a single monitor, not all of them</source>
        <translation>Lo elegido no es un solo monitor: vuelva a grabar y elija un único monitor, no todos</translation>
    </message>
    <message>
        <source>The monitor that is recorded was switched off or unplugged</source>
        <translation>Se apagó o desconectó el monitor que se graba</translation>
    </message>
</context>
<context>
    <name>Clipboard</name>
    <message>
        <source>QUILLBOX_CLIPBOARD_BACKEND is &quot;%1&quot;</source>
        <translation>QUILLBOX_CLIPBOARD_BACKEND vale «%1»</translation>
    </message>
    <message>
        <source>There is no display</source>
        <translation>No hay ninguna pantalla</translation>
    </message>
    <message>
        <source>The desktop is an X11 display</source>
        <translation>El escritorio es una pantalla X11</translation>
    </message>
    <message>
        <source>The toolkit shows its windows on &quot;%1&quot;</source>
        <translation>El toolkit muestra sus ventanas en «%1»</translation>
    </message>
    <message>
        <source>The compositor offers %1</source>
        <translation>El compositor ofrece %1</translation>
    </message>
    <message>
        <source>The compositor lets only a window that has the keyboard set the clipboard</source>
        <translation>El compositor solo deja escribir en el portapapeles a una ventana que tenga el teclado</translation>
    </message>
</context>
<context>
    <name>ControlCommand</name>
    <message>
        <source>the answer can&apos;t be written to standard output</source>
        <translation>no se puede escribir la respuesta en la salida estándar</translation>
    </message>
    <message>
        <source>a clip is being made already; quillbox stop ends a recording</source>
        <translation>ya se está haciendo un clip; quillbox stop termina una grabación</translation>
    </message>
    <message>
        <source>Quillbox is not running; start it with quillbox</source>
        <translation>Quillbox no está en ejecución; inícielo con quillbox</translation>
    </message>
</context>
<context>
    <name>CutOffRecordings</name>
    <message>
        <source>Another program has this recording, or it is gone</source>
        <translation>Otro programa tiene esta grabación, o ya no existe</translation>
    </message>
    <message>
        <source>This recording is damaged; nothing can be made of it</source>
        <translation>Esta grabación está dañada; no se puede hacer nada con ella</translation>
    </message>
</context>
<context>
    <name>DesktopApplication</name>
    <message>
        <source>%1. quillbox record and encode work from a terminal</source>
        <translation>%1. quillbox record y encode funcionan desde un terminal</translation>
    </message>
    <message>
        <source>QT_QPA_PLATFORM is &quot;%1&quot;, which is none of %2; unset it</source>
        <translation>QT_QPA_PLATFORM es «%1», que no es ninguno de %2; quítelo</translation>
    </message>
</context>
<context>
    <name>DisplayError</name>
    <message>
        <source>DISPLAY is not set, so there is no X11 display to record</source>
        <translation>DISPLAY no está definida, así que no hay ninguna pantalla X11 que grabar</translation>
    </message>
    <message>
        <source>The X11 display %1 can&apos;t be connected to</source>
        <translation>No se puede conectar con la pantalla X11 %1</translation>
    </message>
    <message>
        <source>The screen&apos;s colours can&apos;t be read (depth %1); only true-colour screens can be recorded</source>
        <translation>No se pueden leer los colores de la pantalla (profundidad %1); solo se pueden grabar pantallas en color verdadero</translation>
    </message>
    <message>
        <source>The connection to the X11 display was lost</source>
        <translation>Se ha perdido la conexión con la pantalla X11</translation>
    </message>
</context>
<context>
    <name>Doctor</name>
    <message>
        <source>no display</source>
        <translation>sin pantalla</translation>
    </message>
    <message>
        <source>the report can&apos;t be written to standard output</source>
        <translation>no se puede escribir el informe en la salida estándar</translation>
    </message>
    <message>
        <source>What this desktop has for Quillbox</source>
        <translation>Lo que este escritorio ofrece a Quillbox</translation>
    </message>
    <message>
        <source>What is missing comes, on Debian and Ubuntu, with</source>
        <translation>Lo que falta se instala, en Debian y Ubuntu, con</translation>
    </message>
    <message>
        <source>The screen can be recorded.</source>
        <translation>La pantalla se puede grabar.</translation>
    </message>
    <message>
        <source>The screen can&apos;t be recorded.</source>
        <translation>La pantalla no se puede grabar.</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>Bandeja</translation>
    </message>
    <message>
        <source>a StatusNotifierItem watcher with a host</source>
        <translation>un vigilante de StatusNotifierItem con anfitrión</translation>
    </message>
    <message>
        <source>a StatusNotifierItem watcher without a host</source>
        <translation>un vigilante de StatusNotifierItem sin anfitrión</translation>
    </message>
    <message>
        <source>a tray of the X server&apos;s kind (XEmbed)</source>
        <translation>una bandeja del tipo del servidor X (XEmbed)</translation>
    </message>
    <message>
        <source>a StatusNotifierItem</source>
        <translation>un StatusNotifierItem</translation>
    </message>
    <message>
        <source>This desktop shows no tray icons</source>
        <translation>Este escritorio no muestra iconos en la bandeja</translation>
    </message>
    <message>
        <source>quillbox show opens the panel</source>
        <translation>quillbox show abre el panel</translation>
    </message>
    <message>
        <source>bind quillbox toggle to a key in the desktop&apos;s settings</source>
        <translation>asigne quillbox toggle a una tecla en la configuración del escritorio</translation>
    </message>
    <message>
        <source>Hotkey</source>
        <translation>Atajo</translation>
    </message>
    <message>
        <source>no other program holds it</source>
        <translation>ningún otro programa lo ocupa</translation>
    </message>
    <message>
        <source>it is held, as Quillbox runs</source>
        <translation>está ocupado, ya que Quillbox está en ejecución</translation>
    </message>
    <message>
        <source>There is no X server that has the keys</source>
        <translation>No hay ningún servidor X que tenga las teclas</translation>
    </message>
    <message>
        <source>the portal&apos;s GlobalShortcuts, version %1</source>
        <translation>GlobalShortcuts del portal, versión %1</translation>
    </message>
    <message>
        <source>There is no session bus</source>
        <translation>No hay bus de sesión</translation>
    </message>
    <message>
        <source>There is no desktop portal</source>
        <translation>No hay portal de escritorio</translation>
    </message>
    <message>
        <source>The portal has no global shortcuts on this desktop</source>
        <translation>El portal no tiene atajos globales en este escritorio</translation>
    </message>
    <message>
        <source>The desktop portal does not answer</source>
        <translation>El portal de escritorio no responde</translation>
    </message>
    <message>
        <source>You refused it when the desktop asked</source>
        <translation>Usted lo rechazó cuando el escritorio preguntó</translation>
    </message>
    <message>
        <source>to be asked again, remove %1 and start Quillbox anew; or bind quillbox toggle to a key in the desktop&apos;s settings</source>
        <translation>para que se vuelva a preguntar, borre %1 y reinicie Quillbox; o asigne quillbox toggle a una tecla en la configuración del escritorio</translation>
    </message>
    <message>
        <source>The hotkey is switched off by QUILLBOX_HOTKEY_BACKEND</source>
        <translation>El atajo está desactivado por QUILLBOX_HOTKEY_BACKEND</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Actualización</translation>
    </message>
    <message>
        <source>There is no system bus</source>
        <translation>No hay bus de sistema</translation>
    </message>
    <message>
        <source>There is no PackageKit</source>
        <translation>No hay PackageKit</translation>
    </message>
    <message>
        <source>update Quillbox the way it was installed</source>
        <translation>actualice Quillbox del mismo modo que lo instaló</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Pantalla</translation>
    </message>
    <message>
        <source>the X server %1</source>
        <translation>el servidor X %1</translation>
    </message>
    <message>
        <source>extensions %1</source>
        <translation>extensiones %1</translation>
    </message>
    <message>
        <source>the server lacks %1: recording is slower, has no pointer, or knows no monitors</source>
        <translation>al servidor le falta %1: la grabación es más lenta, no tiene puntero o no conoce los monitores</translation>
    </message>
    <message>
        <source>start it inside a desktop session; quillbox encode needs none</source>
        <translation>inícielo dentro de una sesión de escritorio; quillbox encode no la necesita</translation>
    </message>
    <message>
        <source>monitors</source>
        <translation>monitores</translation>
    </message>
    <message>
        <source>windows</source>
        <translation>ventanas</translation>
    </message>
    <message>
        <source>virtual monitors</source>
        <translation>monitores virtuales</translation>
    </message>
    <message>
        <source>the portal&apos;s ScreenCast, version %1: %2</source>
        <translation>ScreenCast del portal, versión %1: %2</translation>
    </message>
    <message>
        <source>a desktop portal</source>
        <translation>un portal de escritorio</translation>
    </message>
    <message>
        <source>the desktop portal and PipeWire</source>
        <translation>el portal de escritorio y PipeWire</translation>
    </message>
    <message>
        <source>the desktop will ask which monitor to show</source>
        <translation>el escritorio preguntará qué monitor mostrar</translation>
    </message>
    <message>
        <source>the desktop may remember which monitor to show</source>
        <translation>es posible que el escritorio recuerde qué monitor mostrar</translation>
    </message>
    <message>
        <source>systemctl --user restart xdg-desktop-portal may help</source>
        <translation>quizá ayude systemctl --user restart xdg-desktop-portal</translation>
    </message>
    <message>
        <source>The desktop portal shows the screen through PipeWire, which does not run</source>
        <translation>El portal de escritorio muestra la pantalla a través de PipeWire, que no está en ejecución</translation>
    </message>
    <message>
        <source>log in again when it is installed: the portal looks for its pieces only once</source>
        <translation>vuelva a iniciar sesión tras instalarlo: el portal busca sus piezas una sola vez</translation>
    </message>
    <message>
        <source>The X server does not answer</source>
        <translation>El servidor X no responde</translation>
    </message>
    <message>
        <source>a clipboard manager, which keeps clips when Quillbox ends</source>
        <translation>un gestor del portapapeles, que conserva los clips cuando Quillbox termina</translation>
    </message>
    <message>
        <source>no clipboard manager: a clip stays while Quillbox runs</source>
        <translation>sin gestor del portapapeles: un clip queda mientras Quillbox esté en ejecución</translation>
    </message>
    <message>
        <source>the X server&apos;s selection</source>
        <translation>la selección del servidor X</translation>
    </message>
    <message>
        <source>There is no display</source>
        <translation>No hay ninguna pantalla</translation>
    </message>
    <message>
        <source>the compositor&apos;s data control</source>
        <translation>el control de datos (data control) del compositor</translation>
    </message>
    <message>
        <source>the toolkit</source>
        <translation>el toolkit</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>Portapapeles</translation>
    </message>
    <message>
        <source>The display does not answer</source>
        <translation>La pantalla no responde</translation>
    </message>
    <message>
        <source>File manager</source>
        <translation>Archivos</translation>
    </message>
    <message>
        <source>a file manager on the bus (FileManager1)</source>
        <translation>un gestor de archivos en el bus (FileManager1)</translation>
    </message>
    <message>
        <source>the portal&apos;s OpenURI, version %1</source>
        <translation>OpenURI del portal, versión %1</translation>
    </message>
    <message>
        <source>the file manager, which selects the clip</source>
        <translation>el gestor de archivos, que selecciona el clip</translation>
    </message>
    <message>
        <source>the desktop portal, which opens the folder</source>
        <translation>el portal de escritorio, que abre la carpeta</translation>
    </message>
    <message>
        <source>xdg-open, which opens the folder</source>
        <translation>xdg-open, que abre la carpeta</translation>
    </message>
    <message>
        <source>Nothing here opens folders</source>
        <translation>Aquí nada abre carpetas</translation>
    </message>
    <message>
        <source>Quillbox was not installed as a package</source>
        <translation>Quillbox no se instaló como paquete</translation>
    </message>
    <message>
        <source>Updates are switched off by QUILLBOX_UPDATE_BACKEND</source>
        <translation>QUILLBOX_UPDATE_BACKEND desactiva las actualizaciones</translation>
    </message>
    <message>
        <source>to choose another monitor, remove %1</source>
        <translation>para elegir otro monitor, elimine %1</translation>
    </message>
    <message>
        <source>the desktop portal; the desktop&apos;s settings tell the keys</source>
        <translation>el portal de escritorio; las teclas figuran en la configuración del escritorio</translation>
    </message>
    <message>
        <source>the desktop portal: %1</source>
        <translation>el portal de escritorio: %1</translation>
    </message>
    <message>
        <source>start Quillbox and look again: only then the desktop tells what it has bound</source>
        <translation>inicie Quillbox y vuelva a mirar: solo entonces el escritorio dice qué teclas ha asignado</translation>
    </message>
    <message>
        <source>The desktop has bound no key for Quillbox</source>
        <translation>El escritorio no ha asignado ninguna tecla a Quillbox</translation>
    </message>
    <message>
        <source>PipeWire, which brings the screen&apos;s pictures, does not answer</source>
        <translation>PipeWire, que trae las imágenes de la pantalla, no responde</translation>
    </message>
    <message>
        <source>systemctl --user restart pipewire wireplumber may help</source>
        <translation>quizá ayude systemctl --user restart pipewire wireplumber</translation>
    </message>
    <message>
        <source>PipeWire has no session manager, which connects its programs</source>
        <translation>PipeWire no tiene gestor de sesiones, que conecta sus programas</translation>
    </message>
    <message>
        <source>systemctl --user start wireplumber starts one that is installed</source>
        <translation>systemctl --user start wireplumber inicia el que esté instalado</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Imágenes</translation>
    </message>
    <message>
        <source>%1, but not %2</source>
        <translation>%1, pero no %2</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>Grabaciones</translation>
    </message>
    <message numerus="yes">
        <source>%n recording(s) cut off before there was a clip</source>
        <translation>
            <numerusform>%n grabación cortada antes de que hubiera un clip</numerusform>
            <numerusform>%n grabaciones cortadas antes de que hubiera un clip</numerusform>
        </translation>
    </message>
    <message>
        <source>quillbox recover makes clips of them, quillbox recover --discard removes them</source>
        <translation>quillbox recover hace clips con ellas, quillbox recover --discard las elimina</translation>
    </message>
    <message>
        <source>%1 of the X server</source>
        <translation>%1 del servidor X</translation>
    </message>
    <message>
        <source>Another program holds %1</source>
        <translation>Otro programa ocupa %1</translation>
    </message>
    <message>
        <source>the desktop portal, once it has been asked for %1</source>
        <translation>el portal de escritorio, en cuanto se le haya pedido %1</translation>
    </message>
</context>
<context>
    <name>ErrorReport</name>
    <message>
        <source>there is not enough memory for these frames; use fewer or smaller ones</source>
        <translation>no hay memoria suficiente para estos fotogramas; use menos o más pequeños</translation>
    </message>
    <message>
        <source>%1 is saved, but not what there is to say about it: %2</source>
        <translation>%1 está guardado, pero no lo que hay que decir de él: %2</translation>
    </message>
    <message>
        <source>warning: %1</source>
        <translation>aviso: %1</translation>
    </message>
    <message>
        <source>this process may not open enough files; raise the limit with ulimit -n 64</source>
        <translation>este proceso no puede abrir bastantes archivos; suba el límite con ulimit -n 64</translation>
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
        <translation>GIF diminuto de menos de 2 MB</translation>
    </message>
    <message>
        <source>GitHub</source>
        <translation>GitHub</translation>
    </message>
    <message>
        <source>GIF under 10 MB</source>
        <translation>GIF de menos de 10 MB</translation>
    </message>
    <message>
        <source>Docs</source>
        <translation>Docs</translation>
    </message>
    <message>
        <source>Crisp, balanced quality</source>
        <translation>Calidad nítida y equilibrada</translation>
    </message>
</context>
<context>
    <name>FrameReadError</name>
    <message>
        <source>can&apos;t be opened: %1</source>
        <translation>no se puede abrir: %1</translation>
    </message>
    <message>
        <source>can&apos;t be read: %1</source>
        <translation>no se puede leer: %1</translation>
    </message>
    <message>
        <source>holds no frame; at least one is needed</source>
        <translation>no contiene ningún fotograma; hace falta al menos uno</translation>
    </message>
    <message>
        <source>frame %1 ends after %2 of %3 bytes; %4</source>
        <translation>el fotograma %1 termina tras %2 de %3 bytes; %4</translation>
    </message>
    <message>
        <source>frame %1 is %2; each side must be 1 to 65535 pixels</source>
        <translation>el fotograma %1 mide %2; cada lado debe tener de 1 a 65535 píxeles</translation>
    </message>
    <message>
        <source>frame %1 is %2, more than this machine&apos;s memory holds; use smaller frames</source>
        <translation>el fotograma %1 mide %2, más de lo que cabe en la memoria de este equipo; use fotogramas más pequeños</translation>
    </message>
    <message>
        <source>header has &quot;%1&quot;; expected %2</source>
        <translation>la cabecera tiene «%1»; se esperaba %2</translation>
    </message>
    <message>
        <source>frame %1 has &quot;%2&quot;; expected %3</source>
        <translation>el fotograma %1 tiene «%2»; se esperaba %3</translation>
    </message>
    <message>
        <source>is not an image that can be read; expected PNG, JPEG, GIF or the like, a YUV4MPEG2 stream, or --raw WxH for raw RGBA frames</source>
        <translation>no es una imagen legible; se esperaba PNG, JPEG, GIF o similar, un flujo YUV4MPEG2, o --raw WxH para fotogramas RGBA sin formato</translation>
    </message>
    <message>
        <source>frame %1 can&apos;t be decoded: %2</source>
        <translation>el fotograma %1 no se puede decodificar: %2</translation>
    </message>
    <message>
        <source>plays for %1 s, more than %2 s; use --source-fps to take its frames one each</source>
        <translation>dura %1 s, más de %2 s; con --source-fps se toman sus fotogramas uno a uno</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>is --raw %1 its true size?</source>
        <translation>¿es --raw %1 su tamaño real?</translation>
    </message>
    <message>
        <source>a rate like F30:1 or F30000:1001</source>
        <translation>una frecuencia como F30:1 o F30000:1001</translation>
    </message>
    <message>
        <source>a YUV4MPEG2 stream (or --raw WxH for raw RGBA frames)</source>
        <translation>un flujo YUV4MPEG2 (o --raw WxH para fotogramas RGBA sin formato)</translation>
    </message>
    <message>
        <source>a whole number of pixels</source>
        <translation>un número entero de píxeles</translation>
    </message>
    <message>
        <source>the frame size in its tags W and H</source>
        <translation>el tamaño del fotograma en sus campos W y H</translation>
    </message>
    <message>
        <source>XCOLORRANGE=FULL or XCOLORRANGE=LIMITED</source>
        <translation>XCOLORRANGE=FULL o XCOLORRANGE=LIMITED</translation>
    </message>
    <message>
        <source>FRAME and its picture; the stream is cut off</source>
        <translation>FRAME y su imagen; el flujo está cortado</translation>
    </message>
    <message>
        <source>FRAME; the frame before it has another size</source>
        <translation>FRAME; el fotograma anterior tiene otro tamaño</translation>
    </message>
    <message>
        <source>write the stream again</source>
        <translation>vuelva a escribir el flujo</translation>
    </message>
    <message>
        <source>became shorter while it was being read; run the command again</source>
        <translation>se acortó mientras se leía; ejecute la orden de nuevo</translation>
    </message>
    <message>
        <source>is a %1 image, for which a plugin is missing; install qt6-image-formats-plugins (Fedora: qt6-qtimageformats, Arch: qt6-imageformats)</source>
        <translation>es una imagen %1, para la que falta un complemento; instale qt6-image-formats-plugins (Fedora: qt6-qtimageformats, Arch: qt6-imageformats)</translation>
    </message>
    <message>
        <source>is a video; have FFmpeg take its pictures: ffmpeg -i VIDEO -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o OUT.gif -</source>
        <translation>es un vídeo; haga que FFmpeg saque sus imágenes: ffmpeg -i VIDEO -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o OUT.gif -</translation>
    </message>
    <message>
        <source>is cut off: not even its first frame is whole; get the file again</source>
        <translation>está cortado: ni siquiera su primera imagen está entera; obtenga el archivo de nuevo</translation>
    </message>
    <message numerus="yes">
        <source>is cut off after %n whole frame(s); get the file again, or --keep-going</source>
        <translation>
            <numerusform>está cortado tras %n imagen entera; obtenga el archivo de nuevo, o --keep-going</numerusform>
            <numerusform>está cortado tras %n imágenes enteras; obtenga el archivo de nuevo, o --keep-going</numerusform>
        </translation>
    </message>
    <message>
        <source>frame %1 is %2, but the first is %3; without --strict it is fitted into that</source>
        <translation>la imagen %1 es de %2, pero la primera de %3; sin --strict se ajusta a esta</translation>
    </message>
    <message>
        <source>frames are %1, so --crop names a part that they don&apos;t have</source>
        <translation>las imágenes son de %1, así que --crop nombra una parte que no tienen</translation>
    </message>
    <message>
        <source>no image is there; name a folder with images, or a pattern that some fit</source>
        <translation>no hay ninguna imagen; nombre una carpeta con imágenes, o un patrón que alguna cumpla</translation>
    </message>
    <message>
        <source>C420, C422, C444, C411 or Cmono of 8 to 16 bits (with FFmpeg: -pix_fmt yuv444p)</source>
        <translation>C420, C422, C444, C411 o Cmono de 8 a 16 bits (con FFmpeg: -pix_fmt yuv444p)</translation>
    </message>
    <message>
        <source>at least one frame in ten minutes</source>
        <translation>al menos una imagen cada diez minutos</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>Examples:
  quillbox record --region 0,0,800x600 --duration 3
  quillbox record --select --copy --duration 3
  quillbox record --region 100,50,640x480 -o demo.gif     (Ctrl-C stops and saves)</source>
        <translation>Ejemplos:
  quillbox record --region 0,0,800x600 --duration 3
  quillbox record --select --copy --duration 3
  quillbox record --region 100,50,640x480 -o demo.gif     (Ctrl-C detiene y guarda)</translation>
    </message>
    <message>
        <source>Where the GIF is meant for: its limits on size, width and colours</source>
        <translation>Para qué es el GIF: sus límites de tamaño, anchura y colores</translation>
    </message>
    <message>
        <source>The GIF to write, - for standard output (default: %1)</source>
        <translation>El GIF que se escribe, - para la salida estándar (por omisión: %1)</translation>
    </message>
    <message>
        <source>Describe the result as a JSON object</source>
        <translation>Describir el resultado con un objeto JSON</translation>
    </message>
    <message>
        <source>Replace OUT if it exists</source>
        <translation>Reemplazar OUT si existe</translation>
    </message>
    <message>
        <source>Let the user drag out a region and record it</source>
        <translation>Dejar que se marque un área y grabarla</translation>
    </message>
    <message>
        <source>Stop recording, save and copy the clip, and print where it is</source>
        <translation>Detener la grabación, guardar y copiar el clip y mostrar dónde está</translation>
    </message>
    <message>
        <source>Stop a recording, or begin one</source>
        <translation>Detener una grabación o empezar una</translation>
    </message>
    <message>
        <source>Open the panel</source>
        <translation>Abrir el panel</translation>
    </message>
    <message>
        <source>Print what the application is doing</source>
        <translation>Mostrar lo que está haciendo la aplicación</translation>
    </message>
    <message>
        <source>End the application</source>
        <translation>Salir de la aplicación</translation>
    </message>
    <message>
        <source>Example:
  quillbox %1</source>
        <translation>Ejemplo:
  quillbox %1</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Uso</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPCIONES</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>ORDEN</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>Argumentos</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Opciones</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>OBLIGATORIO</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>Órdenes</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>Mostrar esta ayuda y salir</translation>
    </message>
    <message>
        <source>%1 (of the running application)</source>
        <translation>%1 (en la aplicación en ejecución)</translation>
    </message>
    <message>
        <source>Answer with a JSON object</source>
        <translation>Responder con un objeto JSON</translation>
    </message>
    <message>
        <source>Print the version</source>
        <translation>Mostrar la versión</translation>
    </message>
    <message>
        <source>Turn images, YUV4MPEG2 or raw frames into a GIF</source>
        <translation>Convertir imágenes, YUV4MPEG2 o fotogramas sin formato en un GIF</translation>
    </message>
    <message>
        <source>beside the first INPUT, with the extension gif</source>
        <translation>junto al primer INPUT, con la extensión gif</translation>
    </message>
    <message>
        <source>Record a region of the screen as a GIF</source>
        <translation>Grabar un área de la pantalla como GIF</translation>
    </message>
    <message>
        <source>Left, top and size of the region, points of the main display</source>
        <translation>Izquierda, arriba y tamaño del área, en puntos de la pantalla principal</translation>
    </message>
    <message>
        <source>Drag the region out on the screen</source>
        <translation>Marcar el área arrastrando en la pantalla</translation>
    </message>
    <message>
        <source>Stop after so many seconds (default: Ctrl-C stops)</source>
        <translation>Detenerse tras estos segundos (por omisión: Ctrl-C detiene)</translation>
    </message>
    <message>
        <source>a dated file in the folder Quillbox of your videos</source>
        <translation>un archivo con fecha en la carpeta Quillbox de sus vídeos</translation>
    </message>
    <message>
        <source>Put the clip on the clipboard, too</source>
        <translation>Poner también el clip en el portapapeles</translation>
    </message>
    <message>
        <source>List the clips made lately, newest first</source>
        <translation>Mostrar los últimos clips, el más reciente primero</translation>
    </message>
    <message>
        <source>Print them as a JSON array</source>
        <translation>Mostrarlos como una lista JSON</translation>
    </message>
    <message>
        <source>Tell what this desktop has to record, copy and so on, and what is missing</source>
        <translation>Decir qué tiene este escritorio para grabar, copiar, etc., y qué falta</translation>
    </message>
    <message>
        <source>Print it as a JSON object</source>
        <translation>Mostrarlo como un objeto JSON</translation>
    </message>
    <message>
        <source>The exit status is 0 where the screen can be recorded, else 1.</source>
        <translation>El estado de salida es 0 si la pantalla se puede grabar; si no, 1.</translation>
    </message>
    <message>
        <source>Show every change, as exactly as the preset&apos;s size and width allow</source>
        <translation>Mostrar cada cambio, con toda la exactitud que permiten el tamaño y el ancho del ajuste</translation>
    </message>
    <message>
        <source>With --precise: the size instead of the preset&apos;s</source>
        <translation>Con --precise: el tamaño en lugar del ajuste</translation>
    </message>
    <message>
        <source>With --precise: the width instead of the preset&apos;s</source>
        <translation>Con --precise: el ancho en lugar del ajuste</translation>
    </message>
    <message>
        <source>With --precise: the most pictures a second (default: 30)</source>
        <translation>Con --precise: el máximo de imágenes por segundo (por omisión: 30)</translation>
    </message>
    <message>
        <source>With --precise: the most colours of a picture (default: 256)</source>
        <translation>Con --precise: el máximo de colores de una imagen (por omisión: 256)</translation>
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
        <translation>Convierte una parte de la pantalla, o un clip, en un pequeño GIF animado.
Sin orden: la aplicación en la bandeja, donde todo se puede hacer con el ratón.

Ejemplos:
  quillbox                      (inicia la aplicación, o la muestra)
  quillbox toggle               (para un atajo de teclado: grabar, y después detener y copiar)
Grabar un área desde un script:
  quillbox record --region 100,100,640x480 --duration 3 --force -o demo.gif
Codificar fotogramas de otro programa:
  ffmpeg -v error -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - \
    | quillbox encode --matrix bt709 -o clip.gif -
Grabar un programa en integración continua, sin pantalla:
  xvfb-run -s &quot;-screen 0 1280x720x24&quot; \
    sh -c &quot;my-program &amp; quillbox record --region 0,0,1280x720 --duration 3 -o program.gif&quot;

Las órdenes de abajo tienen más ejemplos: quillbox encode --help</translation>
    </message>
    <message>
        <source>Examples:
  quillbox encode -o steps.gif step1.png step2.png step3.png --source-fps 1
  quillbox encode -o steps.gif step%02d.png --delay 1.5
  ffmpeg -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o clip.gif -
  quillbox encode --raw 1280x720 --preset github capture.rgba</source>
        <translation>Ejemplos:
  quillbox encode -o steps.gif step1.png step2.png step3.png --source-fps 1
  quillbox encode -o steps.gif step%02d.png --delay 1.5
  ffmpeg -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o clip.gif -
  quillbox encode --raw 1280x720 --preset github capture.rgba</translation>
    </message>
    <message>
        <source>Print neither progress nor the result, unless as JSON</source>
        <translation>No mostrar ni el progreso ni el resultado, salvo como JSON</translation>
    </message>
    <message>
        <source>Shrink wider frames to so many pixels; with --precise, instead of the preset&apos;s width</source>
        <translation>Reducir las imágenes más anchas a tantos píxeles; con --precise, en vez del ancho del ajuste</translation>
    </message>
    <message>
        <source>the text can&apos;t be written to standard output</source>
        <translation>el texto no se puede escribir en la salida estándar</translation>
    </message>
    <message>
        <source>Images, one frame each, a folder of them, or a pattern like f%03d.png; or one animated image; or one YUV4MPEG2 stream; - for standard input</source>
        <translation>Imágenes, cada una un fotograma, una carpeta de ellas o un patrón como f%03d.png; o una imagen animada; o un flujo YUV4MPEG2; - para la entrada estándar</translation>
    </message>
    <message>
        <source>Frames per second of the input, like 12, 0.5 or 30000/1001 (default: its own; else 1 for several images, 30 for raw frames)</source>
        <translation>Imágenes por segundo de la entrada, como 12, 0.5 o 30000/1001 (por omisión: las suyas; si no, 1 con varias imágenes, 30 con fotogramas sin formato)</translation>
    </message>
    <message>
        <source>Show each frame of the input for so many seconds; the other way to say --source-fps</source>
        <translation>Mostrar cada imagen de la entrada tantos segundos; otra manera de decir --source-fps</translation>
    </message>
    <message>
        <source>INPUT is raw frames of this size, without padding</source>
        <translation>INPUT son fotogramas sin formato de este tamaño, sin relleno</translation>
    </message>
    <message>
        <source>Take this part of each frame: left, top and size</source>
        <translation>Tomar esta parte de cada imagen: izquierda, arriba y tamaño</translation>
    </message>
    <message>
        <source>Play the GIF so many times (default: 0, for ever)</source>
        <translation>Reproducir el GIF tantas veces (por omisión: 0, sin fin)</translation>
    </message>
    <message>
        <source>Encode with so many threads (default: one a core)</source>
        <translation>Codificar con tantos hilos (por omisión: uno por núcleo)</translation>
    </message>
    <message>
        <source>By which standard the YUV4MPEG2 stream has its colours (default: bt709 from 720 rows on, else bt601)</source>
        <translation>Según qué norma tiene sus colores el flujo YUV4MPEG2 (por omisión: bt709 desde 720 filas, si no bt601)</translation>
    </message>
    <message>
        <source>Refuse images of another size than the first instead of fitting them into it</source>
        <translation>Rechazar las imágenes de otro tamaño que la primera en vez de ajustarlas a ella</translation>
    </message>
    <message>
        <source>Leave out images and frames that are damaged or cut off, and say how many</source>
        <translation>Omitir las imágenes dañadas o cortadas, y decir cuántas</translation>
    </message>
    <message>
        <source>Print the help of a command</source>
        <translation>Mostrar la ayuda de una orden</translation>
    </message>
    <message>
        <source>The command; none for all of them</source>
        <translation>La orden; ninguna para todas</translation>
    </message>
    <message>
        <source>Make clips of recordings that the program&apos;s end cut off</source>
        <translation>Hacer clips con las grabaciones que cortó el final del programa</translation>
    </message>
    <message>
        <source>Only list them: when each began, and how long it is</source>
        <translation>Solo listarlas: cuándo empezó cada una y cuánto dura</translation>
    </message>
    <message>
        <source>Remove them instead</source>
        <translation>Eliminarlas en su lugar</translation>
    </message>
    <message>
        <source>Make another clip of what was recorded last, save and copy it</source>
        <translation>Hacer otro clip de la última grabación, guardarlo y copiarlo</translation>
    </message>
    <message>
        <source>Keep every change in this clip</source>
        <translation>Conservar todos los cambios en este clip</translation>
    </message>
    <message>
        <source>Where the GIF is meant for (default: as for the clip before)</source>
        <translation>Para qué sirve el GIF (por omisión: como el clip anterior)</translation>
    </message>
    <message>
        <source>Mix colours that the palette lacks; not with --precise</source>
        <translation>Mezclar los colores que faltan en la paleta; no con --precise</translation>
    </message>
    <message>
        <source>With --raw: the bytes of a pixel</source>
        <translation>Con --raw: los bytes de un píxel</translation>
    </message>
    <message>
        <source>What shows through transparent pixels (default: white; raw frames are opaque unless this is given)</source>
        <translation>Lo que se ve a través de los píxeles transparentes (por defecto, blanco; los fotogramas en bruto son opacos si no se indica)</translation>
    </message>
</context>
<context>
    <name>HistoryCommand</name>
    <message>
        <source>the list can&apos;t be written to standard output</source>
        <translation>no se puede escribir la lista en la salida estándar</translation>
    </message>
</context>
<context>
    <name>HotkeyNotice</name>
    <message>
        <source>This desktop has given Quillbox no hotkey. Bind “quillbox toggle” to a key in its settings.</source>
        <translation>Este escritorio no ha dado ningún atajo a Quillbox. Asigne «quillbox toggle» a una tecla en su configuración.</translation>
    </message>
    <message>
        <source>This desktop has no global hotkeys. Bind “quillbox toggle” to a key in its settings.</source>
        <translation>Este escritorio no tiene atajos globales. Asigne «quillbox toggle» a una tecla en su configuración.</translation>
    </message>
    <message>
        <source>No hotkey, as you decided. “quillbox toggle” can be bound to a key; “quillbox doctor” tells how to be asked again.</source>
        <translation>Sin atajo, como usted decidió. «quillbox toggle» se puede asignar a una tecla; «quillbox doctor» dice cómo hacer que se vuelva a preguntar.</translation>
    </message>
    <message>
        <source>The desktop may ask whether Quillbox may have this hotkey.</source>
        <translation>Es posible que el escritorio pregunte si Quillbox puede tener este atajo.</translation>
    </message>
    <message>
        <source>The desktop&apos;s settings tell the keys, and can change them.</source>
        <translation>Las teclas figuran en la configuración del escritorio, donde se pueden cambiar.</translation>
    </message>
    <message>
        <source>The desktop has set the keys to: %1. Its settings can change them.</source>
        <translation>El escritorio ha elegido estas teclas: %1. Se pueden cambiar en su configuración.</translation>
    </message>
    <message>
        <source>Super + Shift + %1</source>
        <translation>Super + Mayús + %1</translation>
    </message>
    <message>
        <source>Another program uses %1. Quillbox gets it as soon as it is free; “quillbox toggle” can be bound to any other key.</source>
        <translation>Otro programa usa %1. Quillbox tendrá esas teclas en cuanto queden libres; «quillbox toggle» se puede asignar a cualquier otra tecla.</translation>
    </message>
    <message>
        <source>⌘ is the Super key: press %1 in any program.</source>
        <translation>⌘ es la tecla Super: pulse %1 en cualquier programa.</translation>
    </message>
    <message>
        <source>Press “Record Region”, not ⌘⇧2.</source>
        <translation>Pulse «Grabar área», no ⌘⇧2.</translation>
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
            <numerusform>%1; la %n imagen anterior está en el clip</numerusform>
            <numerusform>%1; las %n imágenes anteriores están en el clip</numerusform>
        </translation>
    </message>
    <message>
        <source>images left out: %1 of %2; %3</source>
        <translation>imágenes omitidas: %1 de %2; %3</translation>
    </message>
</context>
<context>
    <name>OutputFileError</name>
    <message>
        <source>the file exists already; use --force to replace it</source>
        <translation>el archivo ya existe; use --force para reemplazarlo</translation>
    </message>
    <message>
        <source>there is no folder %1; create it first</source>
        <translation>no existe la carpeta %1; créela primero</translation>
    </message>
    <message>
        <source>it is a folder; name a file</source>
        <translation>es una carpeta; indique un archivo</translation>
    </message>
    <message>
        <source>it is an input itself; name another file with -o</source>
        <translation>es una de las entradas; indique otro archivo con -o</translation>
    </message>
    <message>
        <source>no space left; free some or save elsewhere</source>
        <translation>no queda espacio; libere algo o guarde en otro sitio</translation>
    </message>
    <message>
        <source>%1: can&apos;t be saved: %2</source>
        <translation>%1: no se puede guardar: %2</translation>
    </message>
    <message>
        <source>it is larger than a file may be here (ulimit -f)</source>
        <translation>es mayor de lo que puede ser un archivo aquí (ulimit -f)</translation>
    </message>
</context>
<context>
    <name>ParserMessages</name>
    <message>
        <source>%1 is required</source>
        <translation>falta %1</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>Argumento inesperado: %1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>Argumentos inesperados: %1</translation>
    </message>
    <message>
        <source>%1: 1 required %2 missing</source>
        <translation>%1: falta el valor %2</translation>
    </message>
</context>
<context>
    <name>ProgressLine</name>
    <message>
        <source>reading</source>
        <translation>leyendo</translation>
    </message>
    <message>
        <source>saving</source>
        <translation>guardando</translation>
    </message>
    <message numerus="yes">
        <source>attempt %1: %n colour(s), %2 %</source>
        <translation>
            <numerusform>intento %1: %n color, %2 %</numerusform>
            <numerusform>intento %1: %n colores, %2 %</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>recording %1 s, %n frame(s); Ctrl-C stops</source>
        <translation>
            <numerusform>grabando: %1 s, %n fotograma; Ctrl-C detiene</numerusform>
            <numerusform>grabando: %1 s, %n fotogramas; Ctrl-C detiene</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>palette %1 of %2: %n colour(s), %3 %</source>
        <translation>
            <numerusform>paleta %1 de %2: %n color, %3 %</numerusform>
            <numerusform>paleta %1 de %2: %n colores, %3 %</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; Ctrl-C again ends this without a clip</source>
        <translation>%1; otra vez Ctrl-C termina sin clip</translation>
    </message>
</context>
<context>
    <name>QuillboxApp</name>
    <message>
        <source>A new version of Quillbox is available</source>
        <translation>Hay una nueva versión de Quillbox</translation>
    </message>
    <message>
        <source>Quillbox %1 is available</source>
        <translation>Quillbox %1 está disponible</translation>
    </message>
    <message>
        <source>“Check for Updates…” in the panel installs it.</source>
        <translation>«Buscar actualizaciones…» en el panel la instala.</translation>
    </message>
    <message>
        <source>The recording goes on</source>
        <translation>La grabación continúa</translation>
    </message>
    <message>
        <source>It could not be prepared for the clip meanwhile. Making the clip will take longer.</source>
        <translation>No se pudo preparar el clip mientras tanto. Crear el clip tardará más.</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>Notificaciones</translation>
    </message>
    <message>
        <source>Quillbox was running twice</source>
        <translation>Quillbox estaba abierto dos veces</translation>
    </message>
    <message>
        <source>The desktop&apos;s session bus had been restarted. The one that was started first has ended; its clips are saved.</source>
        <translation>El bus de sesión del escritorio se había reiniciado. El que se abrió primero ha terminado; sus clips están guardados.</translation>
    </message>
</context>
<context>
    <name>RecordCommand</name>
    <message>
        <source>There is no display to record. Set DISPLAY to an X11 display, such as :0</source>
        <translation>No hay ninguna pantalla que grabar. Dé a DISPLAY una pantalla X11, como :0</translation>
    </message>
    <message>
        <source>Couldn&apos;t start recording: %1.</source>
        <translation>No se ha podido iniciar la grabación: %1.</translation>
    </message>
    <message>
        <source>The recording ended early: %1. What was recorded is kept.</source>
        <translation>La grabación terminó antes de tiempo: %1. Lo grabado se conserva.</translation>
    </message>
    <message>
        <source>the clip stays on the clipboard until something else is copied; Ctrl-C ends this program</source>
        <translation>el clip queda en el portapapeles hasta que se copie otra cosa; Ctrl-C termina este programa</translation>
    </message>
    <message>
        <source>nothing was selected, so nothing was recorded</source>
        <translation>no se ha seleccionado nada, así que no se ha grabado nada</translation>
    </message>
    <message>
        <source>%1. The desktop application does it: start quillbox first.</source>
        <translation>%1. La aplicación de escritorio lo hace: inicie antes quillbox.</translation>
    </message>
    <message>
        <source>%1.</source>
        <translation>%1.</translation>
    </message>
    <message>
        <source>the clip gets onto the clipboard when the panel is opened: quillbox show</source>
        <translation>el clip llega al portapapeles cuando se abre el panel: quillbox show</translation>
    </message>
    <message>
        <source>the clip is saved, but it couldn&apos;t be put on the clipboard</source>
        <translation>el clip está guardado, pero no se ha podido poner en el portapapeles</translation>
    </message>
    <message>
        <source>the clip could not be copied, so nothing was recorded. %1</source>
        <translation>el clip no se podría copiar, así que no se ha grabado nada. %1</translation>
    </message>
    <message>
        <source>warning: only %1x%2 of the region&apos;s %3x%4 are on the main display; the rest is not in the clip</source>
        <translation>advertencia: solo %1x%2 de los %3x%4 de la región están en la pantalla principal; el resto no está en el clip</translation>
    </message>
    <message>
        <source>warning: the clip may begin with remains of the selection: the desktop took more than two seconds to remove them from the screen</source>
        <translation>advertencia: el clip puede empezar con restos de la selección: el escritorio tardó más de dos segundos en quitarlos de la pantalla</translation>
    </message>
</context>
<context>
    <name>RecordingCoordinator</name>
    <message>
        <source>an unknown error</source>
        <translation>error desconocido</translation>
    </message>
    <message>
        <source>There is no display to record</source>
        <translation>No hay ninguna pantalla que grabar</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>There is not enough memory for this recording</source>
        <translation>No hay memoria suficiente para esta grabación</translation>
    </message>
    <message>
        <source>Couldn&apos;t start recording: %1</source>
        <translation>No se ha podido iniciar la grabación: %1</translation>
    </message>
    <message>
        <source>No frames captured.</source>
        <translation>No se ha capturado ningún fotograma.</translation>
    </message>
    <message>
        <source>Couldn&apos;t save clip: %1</source>
        <translation>No se ha podido guardar el clip: %1</translation>
    </message>
    <message>
        <source>Region too large to encode (%1×%2). Max is %3 per side.</source>
        <translation>El área es demasiado grande para codificarla (%1×%2). El máximo es %3 por lado.</translation>
    </message>
</context>
<context>
    <name>RecoverCommand</name>
    <message>
        <source>no recording was cut off; there is nothing to recover</source>
        <translation>no se cortó ninguna grabación; no hay nada que recuperar</translation>
    </message>
    <message>
        <source>several recordings were cut off; leave out -o to make a clip of each</source>
        <translation>se cortaron varias grabaciones; omita -o para hacer un clip con cada una</translation>
    </message>
</context>
<context>
    <name>ResultReport</name>
    <message>
        <source>%1: %2, %3, %4, %5 fps, %6 s, %7</source>
        <translation>%1: %2, %3, %4, %5 fps, %6 s, %7</translation>
    </message>
    <message numerus="yes">
        <source>%n frame(s)</source>
        <translation>
            <numerusform>%n fotograma</numerusform>
            <numerusform>%n fotogramas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n colour(s)</source>
        <translation>
            <numerusform>%n color</numerusform>
            <numerusform>%n colores</numerusform>
        </translation>
    </message>
    <message>
        <source>dithered</source>
        <translation>con difuminado</translation>
    </message>
    <message>
        <source>not dithered</source>
        <translation>sin difuminado</translation>
    </message>
    <message>
        <source>; over the %1 MB budget of %2: record less, or a smaller part of the screen</source>
        <translation>; supera el límite de %1 MB de %2: grabe menos tiempo o una parte más pequeña de la pantalla</translation>
    </message>
    <message>
        <source>; over the %1 of --max-size: record less, or a smaller part of the screen</source>
        <translation>; supera los %1 de --max-size: grabe menos, o una parte más pequeña de la pantalla</translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: at most %2 a second, and changes of less than 1 % merge (--precise keeps them)</source>
        <translation>
            <numerusform>; %n imagen, %1 conservada: %2 por segundo como máximo, y los cambios de menos del 1 % se funden (--precise los conserva)</numerusform>
            <numerusform>; %n imágenes, %1 conservadas: %2 por segundo como máximo, y los cambios de menos del 1 % se funden (--precise los conserva)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: changes of less than 1 % merge (--precise keeps them)</source>
        <translation>
            <numerusform>; %n imagen, %1 conservada: los cambios de menos del 1 % se funden (--precise los conserva)</numerusform>
            <numerusform>; %n imágenes, %1 conservadas: los cambios de menos del 1 % se funden (--precise los conserva)</numerusform>
        </translation>
    </message>
    <message>
        <source>; over the %1 MB budget of %2: try --max-width, --crop, fewer frames or another --preset</source>
        <translation>; por encima del límite de %1 MB de %2: pruebe --max-width, --crop, menos imágenes u otro --preset</translation>
    </message>
    <message>
        <source>picture %1 dB less exact</source>
        <translation>imagen %1 dB menos exacta</translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) left out</source>
        <translation>
            <numerusform>%n cambio omitido</numerusform>
            <numerusform>%n cambios omitidos</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 % narrower</source>
        <translation>%1 % más estrecho</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>; to fit: %1</source>
        <translation>; para que quepa: %1</translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: at most %2 a second (--max-fps)</source>
        <translation>
            <numerusform>; %n imagen, %1 conservadas: como máximo %2 por segundo (--max-fps)</numerusform>
            <numerusform>; %n imágenes, %1 conservadas: como máximo %2 por segundo (--max-fps)</numerusform>
        </translation>
    </message>
    <message>
        <source>, every change kept</source>
        <translation>, se conservan todos los cambios</translation>
    </message>
    <message>
        <source>%1: %2, %3, %4, %5 s</source>
        <translation>%1: %2, %3, %4, %5 s</translation>
    </message>
    <message>
        <source>; over the %1 of --max-size: try --max-width, --crop or fewer frames</source>
        <translation>; supera los %1 de --max-size: pruebe --max-width, --crop o menos fotogramas</translation>
    </message>
</context>
<context>
    <name>StatusReport</name>
    <message numerus="yes">
        <source>%n recording(s) cut off; quillbox recover makes clips</source>
        <translation>
            <numerusform>%n grabación cortada; quillbox recover hace un clip</numerusform>
            <numerusform>%n grabaciones cortadas; quillbox recover hace clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Streams</name>
    <message>
        <source>standard output</source>
        <translation>salida estándar</translation>
    </message>
    <message>
        <source>standard error</source>
        <translation>salida de error estándar</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>entrada estándar</translation>
    </message>
</context>
<context>
    <name>UpdaterController</name>
    <message>
        <source>The system&apos;s software service can&apos;t be reached.</source>
        <translation>No se puede contactar con el servicio de software del sistema.</translation>
    </message>
    <message>
        <source>The system&apos;s software service ended while it was working.</source>
        <translation>El servicio de software del sistema terminó mientras trabajaba.</translation>
    </message>
    <message>
        <source>This copy of Quillbox was not installed as a package, so the system can&apos;t update it.</source>
        <translation>Esta copia de Quillbox no se instaló como paquete, así que el sistema no puede actualizarla.</translation>
    </message>
    <message>
        <source>None of this computer&apos;s package sources offers Quillbox.</source>
        <translation>Ninguna de las fuentes de paquetes de este equipo ofrece Quillbox.</translation>
    </message>
    <message>
        <source>You were not allowed to do this, or no password was given.</source>
        <translation>No tiene permiso para hacerlo, o no se indicó ninguna contraseña.</translation>
    </message>
    <message>
        <source>The package sources can&apos;t be reached. Is this computer online?</source>
        <translation>No se puede acceder a las fuentes de paquetes. ¿Tiene conexión este equipo?</translation>
    </message>
    <message>
        <source>The new version isn&apos;t signed by anybody this system trusts, so it was not installed.</source>
        <translation>La nueva versión no está firmada por nadie en quien confíe este sistema, así que no se ha instalado.</translation>
    </message>
    <message>
        <source>Another program is installing software. Try again once it is done.</source>
        <translation>Otro programa está instalando software. Vuelva a intentarlo cuando termine.</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>Se ha cancelado la actualización.</translation>
    </message>
    <message>
        <source>The system reported success, but the old version is still installed.</source>
        <translation>El sistema dijo que todo fue bien, pero sigue instalada la versión anterior.</translation>
    </message>
    <message>
        <source>The system&apos;s software service didn&apos;t say why.</source>
        <translation>El servicio de software del sistema no ha dicho por qué.</translation>
    </message>
    <message>
        <source>The system&apos;s software service says: %1</source>
        <translation>El servicio de software del sistema dice: %1</translation>
    </message>
    <message>
        <source>The package sources can&apos;t be reached, so there may be a newer version still.</source>
        <translation>No se puede acceder a las fuentes de paquetes, así que puede haber otra versión más reciente.</translation>
    </message>
    <message>
        <source>The package sources were not asked anew, so there may be a newer version still.</source>
        <translation>No se han vuelto a consultar las fuentes de paquetes, así que puede haber otra versión más reciente.</translation>
    </message>
    <message>
        <source>The package sources couldn&apos;t be read anew, so there may be a newer version still.</source>
        <translation>No se han podido volver a leer las fuentes de paquetes, así que puede haber otra versión más reciente.</translation>
    </message>
    <message>
        <source>Updates are switched off by QUILLBOX_UPDATE_BACKEND.</source>
        <translation>QUILLBOX_UPDATE_BACKEND desactiva las actualizaciones.</translation>
    </message>
</context>
<context>
    <name>Usage</name>
    <message>
        <source>standard output is a terminal, which can&apos;t show a GIF; redirect it, or name a file with -o</source>
        <translation>la salida estándar es un terminal, que no puede mostrar un GIF; rediríjala o indique un archivo con -o</translation>
    </message>
    <message>
        <source>--preset: there is no preset &quot;%1&quot;; use slack, github or docs</source>
        <translation>--preset: el preajuste «%1» no existe; use slack, github o docs</translation>
    </message>
    <message>
        <source>-o: the name is empty; name a file, or - for standard output</source>
        <translation>-o: el nombre está vacío; indique un archivo, o - para la salida estándar</translation>
    </message>
    <message>
        <source>--dither: there is no &quot;%1&quot;; use auto, always or never</source>
        <translation>--dither: «%1» no existe; use auto, always o never</translation>
    </message>
    <message>
        <source>--raw: &quot;%1&quot; is not a size; write it like 1280x720</source>
        <translation>--raw: «%1» no es un tamaño; escríbalo como 1280x720</translation>
    </message>
    <message>
        <source>name the region with --region X,Y,WxH, or drag it out with --select</source>
        <translation>indique el área con --region X,Y,WxH, o márquela con --select</translation>
    </message>
    <message>
        <source>--region: &quot;%1&quot; is not a region; write it like 100,50,640x480 (left, top, size)</source>
        <translation>--region: «%1» no es un área; escríbala como 100,50,640x480 (izquierda, arriba, tamaño)</translation>
    </message>
    <message>
        <source>--copy: the clipboard needs a file; leave out -o - or --copy</source>
        <translation>--copy: el portapapeles necesita un archivo; quite -o - o --copy</translation>
    </message>
    <message>
        <source>--duration: &quot;%1&quot; is not a number of seconds above 0, at most 86400</source>
        <translation>--duration: «%1» no es un número de segundos mayor que 0 y de 86400 como máximo</translation>
    </message>
    <message>
        <source>%1; see %2</source>
        <translation>%1; vea %2</translation>
    </message>
    <message>
        <source>this INPUT gives the GIF no name; add one, like -o clip.gif</source>
        <translation>este INPUT no da nombre al GIF; añada uno, como -o clip.gif</translation>
    </message>
    <message>
        <source>%1 is a YUV4MPEG2 stream; give it alone</source>
        <translation>%1 es un flujo YUV4MPEG2; indíquelo solo</translation>
    </message>
    <message>
        <source>--raw: give one INPUT with all frames, one after another</source>
        <translation>--raw: dé un solo INPUT con todos los fotogramas seguidos</translation>
    </message>
    <message>
        <source>standard input must be the only INPUT</source>
        <translation>la entrada estándar debe ser el único INPUT</translation>
    </message>
    <message>
        <source>%1 belongs to --precise; add that</source>
        <translation>%1 va con --precise; añádalo</translation>
    </message>
    <message>
        <source>--max-size: &quot;%1&quot; is not a size; write it like 750K or 1.5M</source>
        <translation>--max-size: «%1» no es un tamaño; escríbalo como 750K o 1.5M</translation>
    </message>
    <message>
        <source>--max-width: use a number of pixels from %1 to %2</source>
        <translation>--max-width: use un número de píxeles de %1 a %2</translation>
    </message>
    <message>
        <source>--max-fps: use a number of pictures a second from %1 to %2</source>
        <translation>--max-fps: use un número de imágenes por segundo de %1 a %2</translation>
    </message>
    <message>
        <source>--colors: use a number of colours from %1 to %2</source>
        <translation>--colors: use un número de colores de %1 a %2</translation>
    </message>
    <message>
        <source>-o: &quot;%1&quot; is no name for a GIF; let it end in .gif</source>
        <translation>-o: «%1» no es nombre para un GIF; haga que acabe en .gif</translation>
    </message>
    <message>
        <source>--crop: &quot;%1&quot; is not a part; write it like 10,20,640x480 (left, top, size)</source>
        <translation>--crop: «%1» no es una parte; escríbala como 10,20,640x480 (izquierda, arriba, tamaño)</translation>
    </message>
    <message>
        <source>--matrix: there is no &quot;%1&quot;; use bt601, bt709 or bt2020</source>
        <translation>--matrix: no existe «%1»; use bt601, bt709 o bt2020</translation>
    </message>
    <message>
        <source>--background: &quot;%1&quot; is not a colour; write it like #FFFFFF, white or black</source>
        <translation>--background: «%1» no es un color; escríbalo como #FFFFFF, white o black</translation>
    </message>
    <message>
        <source>--raw-format: there is no &quot;%1&quot;; use rgba, bgra, rgb or bgr</source>
        <translation>--raw-format: no existe «%1»; use rgba, bgra, rgb o bgr</translation>
    </message>
    <message>
        <source>--source-fps: &quot;%1&quot; is not a number of frames per second; write it like 12, 29.97 or 30000/1001, 1000 at most</source>
        <translation>--source-fps: «%1» no es un número de imágenes por segundo; escríbalo como 12, 29.97 o 30000/1001, 1000 como máximo</translation>
    </message>
    <message>
        <source>--delay and --source-fps say the same; use one of them</source>
        <translation>--delay y --source-fps dicen lo mismo; use uno de los dos</translation>
    </message>
    <message>
        <source>--delay: &quot;%1&quot; is not a number of seconds from 0.001 to 655.35</source>
        <translation>--delay: «%1» no es un número de segundos de 0.001 a 655.35</translation>
    </message>
    <message>
        <source>--raw: &quot;%1&quot; can&apos;t be; each side must be 1 to 65535 pixels</source>
        <translation>--raw: «%1» no puede ser; cada lado debe tener de 1 a 65535 píxeles</translation>
    </message>
    <message>
        <source>--threads: use a number from %1 to %2</source>
        <translation>--threads: use un número de %1 a %2</translation>
    </message>
    <message>
        <source>--loop: use a number from %1 to %2</source>
        <translation>--loop: use un número de %1 a %2</translation>
    </message>
    <message>
        <source>help: there is no command &quot;%1&quot;; see quillbox --help</source>
        <translation>help: no existe la orden «%1»; vea quillbox --help</translation>
    </message>
    <message>
        <source>QUILLBOX_RECORDING_MEMORY is &quot;%1&quot;; make it a whole number of megabytes, or unset it</source>
        <translation>QUILLBOX_RECORDING_MEMORY es «%1»; póngale un número entero de megabytes, o quítela</translation>
    </message>
    <message>
        <source>standard input is a terminal; pipe an image, a YUV4MPEG2 stream or raw frames into it</source>
        <translation>la entrada estándar es una terminal; envíele una imagen, un flujo YUV4MPEG2 o fotogramas sin formato</translation>
    </message>
    <message>
        <source>--list and --discard can&apos;t be had at once; use one of them</source>
        <translation>--list y --discard no se pueden usar a la vez; use una de las dos</translation>
    </message>
    <message>
        <source>--region and --select were both given; use one of them to say what to record</source>
        <translation>se han indicado --region y --select; use uno de los dos para decir qué grabar</translation>
    </message>
    <message>
        <source>--dither: --precise mixes no colours; leave out one of them</source>
        <translation>--dither: --precise no mezcla colores; omita uno de los dos</translation>
    </message>
    <message>
        <source>%1 belongs to --raw; add that</source>
        <translation>%1 va con --raw; añádalo</translation>
    </message>
    <message>
        <source>--matrix: raw frames are red, green and blue; leave it out</source>
        <translation>--matrix: los fotogramas en bruto son de rojo, verde y azul; omítalo</translation>
    </message>
    <message>
        <source>--background: %1 frames have no transparency; leave it out</source>
        <translation>--background: los fotogramas %1 no tienen transparencia; omítalo</translation>
    </message>
    <message>
        <source>QUILLBOX_JOURNAL is &quot;%1&quot;; set it to off to keep no recording on disk, or unset it</source>
        <translation>QUILLBOX_JOURNAL es «%1»; póngalo en off para no guardar grabaciones en el disco, o quítelo</translation>
    </message>
</context>
<context>
    <name>quillbox::ApplicationService</name>
    <message>
        <source>Nothing is being recorded</source>
        <translation>No hay ninguna grabación en curso</translation>
    </message>
    <message>
        <source>A clip is being made already</source>
        <translation>Ya se está haciendo un clip</translation>
    </message>
    <message>
        <source>Nothing has been recorded since Quillbox was started</source>
        <translation>No se ha grabado nada desde que se inició Quillbox</translation>
    </message>
    <message>
        <source>There is no preset “%1”</source>
        <translation>No hay ningún ajuste «%1»</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipActions</name>
    <message>
        <source>No program opens the clip.</source>
        <translation>Ningún programa abre el clip.</translation>
    </message>
    <message>
        <source>The clip can&apos;t be read.</source>
        <translation>No se puede leer el clip.</translation>
    </message>
    <message>
        <source>The clip could not be moved to the trash.</source>
        <translation>No se pudo mover el clip a la papelera.</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipNotices</name>
    <message>
        <source>The recording ended early</source>
        <translation>La grabación terminó antes de tiempo</translation>
    </message>
    <message>
        <source>%1. What was recorded is kept.</source>
        <translation>%1. Lo grabado se conserva.</translation>
    </message>
    <message>
        <source>The clip is ready to paste</source>
        <translation>El clip está listo para pegar</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Mostrar</translation>
    </message>
    <message>
        <source>No clip was made</source>
        <translation>No se creó ningún clip</translation>
    </message>
    <message>
        <source>The clip may begin with remains of the selection</source>
        <translation>El clip puede empezar con restos de la selección</translation>
    </message>
    <message>
        <source>The desktop took more than two seconds to remove them from the screen.</source>
        <translation>El escritorio tardó más de dos segundos en quitarlos de la pantalla.</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipOffers</name>
    <message numerus="yes">
        <source>%1 of %2 · shows %3 of %Ln recorded picture(s)</source>
        <translation>
            <numerusform>%1 de %2 · muestra %3 de %Ln imagen grabada</numerusform>
            <numerusform>%1 de %2 · muestra %3 de %Ln imágenes grabadas</numerusform>
        </translation>
    </message>
    <message>
        <source>Make it sharper</source>
        <translation>Hacerlo más nítido</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>Save elsewhere…</source>
        <translation>Guardar en otro sitio…</translation>
    </message>
    <message>
        <source>Again as %1</source>
        <translation>Otra vez para %1</translation>
    </message>
    <message>
        <source>%1 over the %2 budget of %3</source>
        <translation>%1 por encima del límite de %2 de %3</translation>
    </message>
    <message numerus="yes">
        <source> · shows %1 of %Ln recorded picture(s)</source>
        <translation>
            <numerusform> · muestra %1 de %Ln imagen grabada</numerusform>
            <numerusform> · muestra %1 de %Ln imágenes grabadas</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>quillbox::ClipPreview</name>
    <message>
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 píxeles</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipResult</name>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Mostrar</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipSaveDialog</name>
    <message>
        <source>Save Clip</source>
        <translation>Guardar el clip</translation>
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
        <translation>Una grabación se cortó y está dañada; no se puede aprovechar nada.</translation>
    </message>
    <message>
        <source>A recording from %1 was cut off (%2 s).</source>
        <translation>Una grabación de %1 se cortó (%2 s).</translation>
    </message>
    <message>
        <source>Make the clip</source>
        <translation>Crear el clip</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Descartar</translation>
    </message>
    <message>
        <source>Discard for good</source>
        <translation>Descartar para siempre</translation>
    </message>
    <message>
        <source>Keep it</source>
        <translation>Conservar</translation>
    </message>
</context>
<context>
    <name>quillbox::EdgeStop</name>
    <message>
        <source>Rest the pointer at the upper edge of the screen to see this again.</source>
        <translation>Deja el puntero en el borde superior de la pantalla para volver a ver esto.</translation>
    </message>
</context>
<context>
    <name>quillbox::FirstUseCard</name>
    <message>
        <source>How it works</source>
        <translation>Cómo funciona</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>Entendido</translation>
    </message>
    <message>
        <source>Quillbox waits in the tray of your desktop. Click its icon to open this panel.</source>
        <translation>Quillbox espera en la bandeja del escritorio. Haga clic en su icono para abrir este panel.</translation>
    </message>
    <message>
        <source>This desktop has no tray for an icon. Start Quillbox again to open this panel.</source>
        <translation>Este escritorio no tiene bandeja para un icono. Inicie Quillbox de nuevo para abrir este panel.</translation>
    </message>
    <message>
        <source>Clips are copied, ready to paste, and saved in %1.</source>
        <translation>Los clips se copian, listos para pegar, y se guardan en %1.</translation>
    </message>
    <message>
        <source>Press %1 (⌘⇧2) in any program and drag out a region to record it.</source>
        <translation>Pulse %1 (⌘⇧2) en cualquier programa y arrastre para marcar el área que quiera grabar.</translation>
    </message>
</context>
<context>
    <name>quillbox::HistoryNotice</name>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
</context>
<context>
    <name>quillbox::HistoryPanel</name>
    <message>
        <source>Recent Clips</source>
        <translation>Clips recientes</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Vaciar</translation>
    </message>
    <message>
        <source>No clips yet</source>
        <translation>Aún no hay clips</translation>
    </message>
    <message>
        <source>Your recorded clips will show up here.</source>
        <translation>Aquí aparecerán los clips que grabe.</translation>
    </message>
    <message>
        <source>The files are still there.</source>
        <translation>Los archivos siguen ahí.</translation>
    </message>
    <message>
        <source>Move “%1” to the trash?</source>
        <translation>¿Mover «%1» a la papelera?</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>Mover a la papelera</translation>
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
        <translation>Mostrar en el gestor de archivos</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Mostrar</translation>
    </message>
    <message>
        <source>Move to Trash…</source>
        <translation>Mover a la papelera…</translation>
    </message>
</context>
<context>
    <name>quillbox::MonitorNotice</name>
    <message>
        <source>Recording is possible on %1 only. Drag there.</source>
        <translation>Solo se puede grabar en %1. Arrastre allí.</translation>
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
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Puts the clip on the clipboard</source>
        <translation>Pone el clip en el portapapeles</translation>
    </message>
    <message>
        <source>The clip is not on the clipboard yet.</source>
        <translation>El clip aún no está en el portapapeles.</translation>
    </message>
</context>
<context>
    <name>quillbox::PortalHotkey</name>
    <message>
        <source>Record a region of the screen</source>
        <translation>Grabar un área de la pantalla</translation>
    </message>
</context>
<context>
    <name>quillbox::RecorderHUD</name>
    <message>
        <source>Press ⌘⇧2 or Record to capture a region.</source>
        <translation>Pulse ⌘⇧2 o «Grabar área» para capturar un área.</translation>
    </message>
    <message>
        <source>Drag to select a region…</source>
        <translation>Arrastre para marcar un área…</translation>
    </message>
    <message>
        <source>Recording…</source>
        <translation>Grabando…</translation>
    </message>
    <message>
        <source>Optimizing GIF…</source>
        <translation>Optimizando el GIF…</translation>
    </message>
    <message>
        <source>Copied — %1 · %2</source>
        <translation>Copiado — %1 · %2</translation>
    </message>
    <message>
        <source>Quillbox</source>
        <translation>Quillbox</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Preajuste</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message>
        <source>Finish now</source>
        <translation>Terminar ya</translation>
    </message>
    <message>
        <source>Ends with the smallest file made so far</source>
        <translation>Termina con el archivo más pequeño obtenido hasta ahora</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Buscar actualizaciones…</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Preferencias</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Stop &amp; Copy</source>
        <translation>Detener y copiar</translation>
    </message>
    <message>
        <source>Record Region</source>
        <translation>Grabar área</translation>
    </message>
    <message>
        <source>Keep every change</source>
        <translation>Conservar todos los cambios</translation>
    </message>
    <message>
        <source>Shows all that changed, as sharp as the size allows</source>
        <translation>Muestra todo lo que cambió, tan nítido como lo permite el tamaño</translation>
    </message>
</context>
<context>
    <name>quillbox::SelectionWindow</name>
    <message>
        <source>Select a region</source>
        <translation>Seleccionar un área</translation>
    </message>
    <message>
        <source>Drag to record · Esc cancels</source>
        <translation>Arrastre para grabar · Esc cancela</translation>
    </message>
</context>
<context>
    <name>quillbox::SettingsView</name>
    <message>
        <source>Capture</source>
        <translation>Captura</translation>
    </message>
    <message>
        <source>Global hotkey</source>
        <translation>Atajo global</translation>
    </message>
    <message>
        <source>⌘⇧2</source>
        <translation>⌘⇧2</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>Privacidad</translation>
    </message>
    <message>
        <source>Everything stays on your Mac. No cloud, no telemetry, no account.</source>
        <translation>Todo se queda en su equipo. Sin nube, sin telemetría, sin cuenta.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Preferencias</translation>
    </message>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
</context>
<context>
    <name>quillbox::StopControl</name>
    <message>
        <source>Recording — Quillbox</source>
        <translation>Grabando — Quillbox</translation>
    </message>
    <message>
        <source>Stop &amp; Copy</source>
        <translation>Detener y copiar</translation>
    </message>
</context>
<context>
    <name>quillbox::TrayIcon</name>
    <message>
        <source>Open Quillbox</source>
        <translation>Abrir Quillbox</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Preferencias</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Stop &amp;&amp; Copy</source>
        <translation>Detener y copiar</translation>
    </message>
    <message>
        <source>Record Region</source>
        <translation>Grabar área</translation>
    </message>
    <message>
        <source>Quillbox — Recording…</source>
        <translation>Quillbox — Grabando…</translation>
    </message>
    <message>
        <source>Keep every change</source>
        <translation>Conservar todos los cambios</translation>
    </message>
</context>
<context>
    <name>quillbox::TraylessStop</name>
    <message>
        <source>The screen is being recorded</source>
        <translation>Se está grabando la pantalla</translation>
    </message>
    <message>
        <source>“Stop &amp; Copy” ends the recording.</source>
        <translation>«Detener y copiar» termina la grabación.</translation>
    </message>
    <message>
        <source>Stop &amp; Copy</source>
        <translation>Detener y copiar</translation>
    </message>
</context>
<context>
    <name>quillbox::UpdateView</name>
    <message>
        <source>Looking for updates…</source>
        <translation>Buscando actualizaciones…</translation>
    </message>
    <message>
        <source>The system is asked whether it knows a newer version.</source>
        <translation>Se pregunta al sistema si conoce una versión más reciente.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Quillbox is up to date</source>
        <translation>Quillbox está al día</translation>
    </message>
    <message>
        <source>No newer version has been announced.</source>
        <translation>No se ha anunciado ninguna versión más reciente.</translation>
    </message>
    <message>
        <source>%1 is the newest version on offer.</source>
        <translation>%1 es la versión más reciente disponible.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>No newer version is known</source>
        <translation>No se conoce ninguna versión más reciente</translation>
    </message>
    <message>
        <source>Version %1 is installed.</source>
        <translation>Está instalada la versión %1.</translation>
    </message>
    <message>
        <source>A new version of Quillbox is available</source>
        <translation>Hay una nueva versión de Quillbox</translation>
    </message>
    <message>
        <source>Quillbox %1 is available</source>
        <translation>Quillbox %1 está disponible</translation>
    </message>
    <message>
        <source>The system installs it, and may ask for your password.</source>
        <translation>El sistema la instala y puede pedirle su contraseña.</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Más tarde</translation>
    </message>
    <message>
        <source>Installing the new version…</source>
        <translation>Instalando la nueva versión…</translation>
    </message>
    <message>
        <source>Installing Quillbox %1…</source>
        <translation>Instalando Quillbox %1…</translation>
    </message>
    <message>
        <source>You can go on working meanwhile.</source>
        <translation>Mientras tanto puede seguir trabajando.</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Ocultar</translation>
    </message>
    <message>
        <source>The new version is installed</source>
        <translation>La nueva versión está instalada</translation>
    </message>
    <message>
        <source>Quillbox %1 is installed</source>
        <translation>Quillbox %1 está instalado</translation>
    </message>
    <message>
        <source>Restart Quillbox to use it.</source>
        <translation>Reinicie Quillbox para usarla.</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Actualización</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message>
        <source>Show in Software Center</source>
        <translation>Ver en el centro de software</translation>
    </message>
    <message>
        <source>Install</source>
        <translation>Instalar</translation>
    </message>
    <message>
        <source>Restart Quillbox</source>
        <translation>Reiniciar Quillbox</translation>
    </message>
    <message>
        <source>It can be restarted once your clip is done.</source>
        <translation>Se podrá reiniciar cuando su clip esté listo.</translation>
    </message>
</context>
<context>
    <name>quillbox::UpdaterController</name>
    <message>
        <source>Couldn&apos;t look for updates</source>
        <translation>No se han podido buscar actualizaciones</translation>
    </message>
    <message>
        <source>Couldn&apos;t install the update</source>
        <translation>No se ha podido instalar la actualización</translation>
    </message>
</context>
</TS>
