<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>BackEnd</name>
    <message>
        <source>%1 is &quot;%2&quot;, which is none of %3</source>
        <translation>%1 的值“%2”不是 %3 中的任何一个</translation>
    </message>
</context>
<context>
    <name>CaptureError</name>
    <message>
        <source>Pixels of the clip can&apos;t be read back: they are damaged</source>
        <translation>无法读回片段的像素：数据已损坏</translation>
    </message>
    <message>
        <source>Screen capture is switched off by QUILLBOX_CAPTURE_BACKEND</source>
        <translation>屏幕捕获已被 QUILLBOX_CAPTURE_BACKEND 关闭</translation>
    </message>
    <message>
        <source>A long clip needs a file in %1: %2</source>
        <translation>较长的片段需要在 %1 中建立文件：%2</translation>
    </message>
    <message>
        <source>The disk is nearly full</source>
        <translation>磁盘空间即将用尽</translation>
    </message>
    <message>
        <source>The file of a long clip can&apos;t grow: %1</source>
        <translation>较长片段的文件无法继续增大：%1</translation>
    </message>
    <message>
        <source>Pixels of the clip can&apos;t be read back: %1</source>
        <translation>无法读回片段的像素：%1</translation>
    </message>
    <message>
        <source>The region lies outside the main display, which is %1×%2</source>
        <translation>该区域位于主显示器（%1×%2）之外</translation>
    </message>
    <message>
        <source>Screen capture needs a free file descriptor</source>
        <translation>屏幕捕获需要一个空闲的文件描述符</translation>
    </message>
    <message>
        <source>Screen capture failed: %1</source>
        <translation>屏幕捕获失败：%1</translation>
    </message>
    <message>
        <source>Screen capture was stopped before it began</source>
        <translation>屏幕捕获在开始之前就已停止</translation>
    </message>
    <message>
        <source>The X11 display refuses to show its pixels</source>
        <translation>X11 显示器拒绝提供其像素</translation>
    </message>
    <message>
        <source>PipeWire, which carries the screen&apos;s pictures, can&apos;t be reached</source>
        <translation>无法连接到传送屏幕画面的 PipeWire</translation>
    </message>
    <message>
        <source>PipeWire, which carries the screen&apos;s pictures, went away</source>
        <translation>传送屏幕画面的 PipeWire 已退出</translation>
    </message>
    <message>
        <source>PipeWire does not deliver the screen&apos;s pictures: %1</source>
        <translation>PipeWire 未能提供屏幕画面：%1</translation>
    </message>
    <message>
        <source>unknown error</source>
        <translation>未知错误</translation>
    </message>
    <message>
        <source>The desktop no longer delivers the screen&apos;s pictures</source>
        <translation>桌面不再提供屏幕画面</translation>
    </message>
    <message>
        <source>The screen&apos;s pictures come in a format that was not asked for</source>
        <translation>屏幕画面的格式并非所请求的格式</translation>
    </message>
    <message>
        <source>PipeWire refuses to deliver the screen&apos;s pictures</source>
        <translation>PipeWire 拒绝提供屏幕画面</translation>
    </message>
    <message>
        <source>The desktop delivers no picture of the screen</source>
        <translation>桌面没有提供任何屏幕画面</translation>
    </message>
    <message>
        <source>The region lies outside the display, which is %1×%2</source>
        <translation>该区域位于显示器（%1×%2）之外</translation>
    </message>
    <message>
        <source>Screens of Wayland desktops are recorded through the desktop portal, and none answers: install xdg-desktop-portal and its back end for this desktop</source>
        <translation>Wayland 桌面的屏幕需通过桌面门户录制，但没有门户应答：请安装 xdg-desktop-portal 及适用于此桌面的后端</translation>
    </message>
    <message>
        <source>The desktop portal does not offer the screen: install PipeWire and the portal&apos;s back end for this desktop</source>
        <translation>桌面门户不提供屏幕：请安装 PipeWire 及适用于此桌面的门户后端</translation>
    </message>
    <message>
        <source>The desktop portal, which shows us the screen, went away</source>
        <translation>提供屏幕的桌面门户已退出</translation>
    </message>
    <message>
        <source>The desktop has ended the recording of its screen</source>
        <translation>桌面已结束对其屏幕的录制</translation>
    </message>
    <message>
        <source>The desktop portal&apos;s answer can&apos;t be understood</source>
        <translation>无法理解桌面门户的应答</translation>
    </message>
    <message>
        <source>The desktop portal refused: %1</source>
        <translation>桌面门户拒绝：%1</translation>
    </message>
    <message>
        <source>Screens of Wayland desktops are recorded through the desktop portal, and there is no session bus to reach it</source>
        <translation>Wayland 桌面的屏幕需通过桌面门户录制，但没有可用来连接它的会话总线</translation>
    </message>
    <message>
        <source>The permission to record the screen was not given</source>
        <translation>未获得录制屏幕的许可</translation>
    </message>
    <message>
        <source>The desktop portal could not start to show us the screen</source>
        <translation>桌面门户无法开始提供屏幕</translation>
    </message>
    <message>
        <source>What was chosen is not one monitor: record again and choose a single monitor, not all of them</source>
        <translation>所选的不是单个显示器：请重新录制，并选择一个显示器，而不是全部</translation>
    </message>
    <message>
        <source>The monitor that is recorded was switched off or unplugged</source>
        <translation>正在录制的显示器已被关闭或拔下</translation>
    </message>
</context>
<context>
    <name>Clipboard</name>
    <message>
        <source>QUILLBOX_CLIPBOARD_BACKEND is &quot;%1&quot;</source>
        <translation>QUILLBOX_CLIPBOARD_BACKEND 的值为“%1”</translation>
    </message>
    <message>
        <source>There is no display</source>
        <translation>没有显示器</translation>
    </message>
    <message>
        <source>The desktop is an X11 display</source>
        <translation>桌面是 X11 显示器</translation>
    </message>
    <message>
        <source>The toolkit shows its windows on &quot;%1&quot;</source>
        <translation>工具包在“%1”上显示其窗口</translation>
    </message>
    <message>
        <source>The compositor offers %1</source>
        <translation>合成器提供 %1</translation>
    </message>
    <message>
        <source>The compositor lets only a window that has the keyboard set the clipboard</source>
        <translation>合成器只允许拥有键盘焦点的窗口设置剪贴板</translation>
    </message>
</context>
<context>
    <name>ControlCommand</name>
    <message>
        <source>the answer can&apos;t be written to standard output</source>
        <translation>无法将应答写入标准输出</translation>
    </message>
    <message>
        <source>a clip is being made already; quillbox stop ends a recording</source>
        <translation>已在制作片段；quillbox stop 可结束录制</translation>
    </message>
    <message>
        <source>Quillbox is not running; start it with quillbox</source>
        <translation>Quillbox 未在运行；请用 quillbox 启动它</translation>
    </message>
</context>
<context>
    <name>CutOffRecordings</name>
    <message>
        <source>Another program has this recording, or it is gone</source>
        <translation>此录制正被另一个程序使用，或已不存在</translation>
    </message>
    <message>
        <source>This recording is damaged; nothing can be made of it</source>
        <translation>此录制已损坏，无法制作片段</translation>
    </message>
</context>
<context>
    <name>DesktopApplication</name>
    <message>
        <source>%1. quillbox record and encode work from a terminal</source>
        <translation>%1。quillbox record 和 encode 可在终端中使用</translation>
    </message>
    <message>
        <source>QT_QPA_PLATFORM is &quot;%1&quot;, which is none of %2; unset it</source>
        <translation>QT_QPA_PLATFORM 为“%1”，不是 %2 中的任何一个；请取消设置</translation>
    </message>
</context>
<context>
    <name>DisplayError</name>
    <message>
        <source>DISPLAY is not set, so there is no X11 display to record</source>
        <translation>未设置 DISPLAY，因此没有可录制的 X11 显示器</translation>
    </message>
    <message>
        <source>The X11 display %1 can&apos;t be connected to</source>
        <translation>无法连接到 X11 显示器 %1</translation>
    </message>
    <message>
        <source>The screen&apos;s colours can&apos;t be read (depth %1); only true-colour screens can be recorded</source>
        <translation>无法读取屏幕颜色（色深 %1）；只能录制真彩色屏幕</translation>
    </message>
    <message>
        <source>The connection to the X11 display was lost</source>
        <translation>与 X11 显示器的连接已断开</translation>
    </message>
</context>
<context>
    <name>Doctor</name>
    <message>
        <source>no display</source>
        <translation>无显示器</translation>
    </message>
    <message>
        <source>the report can&apos;t be written to standard output</source>
        <translation>无法将报告写入标准输出</translation>
    </message>
    <message>
        <source>What this desktop has for Quillbox</source>
        <translation>此桌面为 Quillbox 提供的功能</translation>
    </message>
    <message>
        <source>What is missing comes, on Debian and Ubuntu, with</source>
        <translation>在 Debian 和 Ubuntu 上，可用以下命令安装缺少的部分</translation>
    </message>
    <message>
        <source>The screen can be recorded.</source>
        <translation>可以录制屏幕。</translation>
    </message>
    <message>
        <source>The screen can&apos;t be recorded.</source>
        <translation>无法录制屏幕。</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>系统托盘</translation>
    </message>
    <message>
        <source>a StatusNotifierItem watcher with a host</source>
        <translation>有宿主的 StatusNotifierItem 监视服务</translation>
    </message>
    <message>
        <source>a StatusNotifierItem watcher without a host</source>
        <translation>没有宿主的 StatusNotifierItem 监视服务</translation>
    </message>
    <message>
        <source>a tray of the X server&apos;s kind (XEmbed)</source>
        <translation>X 服务器式的系统托盘（XEmbed）</translation>
    </message>
    <message>
        <source>a StatusNotifierItem</source>
        <translation>StatusNotifierItem</translation>
    </message>
    <message>
        <source>This desktop shows no tray icons</source>
        <translation>此桌面不显示托盘图标</translation>
    </message>
    <message>
        <source>quillbox show opens the panel</source>
        <translation>quillbox show 可打开面板</translation>
    </message>
    <message>
        <source>bind quillbox toggle to a key in the desktop&apos;s settings</source>
        <translation>请在桌面设置中将 quillbox toggle 绑定到按键</translation>
    </message>
    <message>
        <source>Hotkey</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>no other program holds it</source>
        <translation>没有其他程序占用它</translation>
    </message>
    <message>
        <source>it is held, as Quillbox runs</source>
        <translation>已被占用，因为 Quillbox 正在运行</translation>
    </message>
    <message>
        <source>There is no X server that has the keys</source>
        <translation>没有具备这些按键的 X 服务器</translation>
    </message>
    <message>
        <source>the portal&apos;s GlobalShortcuts, version %1</source>
        <translation>门户的 GlobalShortcuts，版本 %1</translation>
    </message>
    <message>
        <source>There is no session bus</source>
        <translation>没有会话总线</translation>
    </message>
    <message>
        <source>There is no desktop portal</source>
        <translation>没有桌面门户</translation>
    </message>
    <message>
        <source>The portal has no global shortcuts on this desktop</source>
        <translation>此桌面的门户不支持全局快捷键</translation>
    </message>
    <message>
        <source>The desktop portal does not answer</source>
        <translation>桌面门户没有应答</translation>
    </message>
    <message>
        <source>You refused it when the desktop asked</source>
        <translation>您在桌面询问时拒绝了它</translation>
    </message>
    <message>
        <source>to be asked again, remove %1 and start Quillbox anew; or bind quillbox toggle to a key in the desktop&apos;s settings</source>
        <translation>如需再次询问，请删除 %1 并重新启动 Quillbox；或在桌面设置中将 quillbox toggle 绑定到按键</translation>
    </message>
    <message>
        <source>The hotkey is switched off by QUILLBOX_HOTKEY_BACKEND</source>
        <translation>快捷键已被 QUILLBOX_HOTKEY_BACKEND 关闭</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>There is no system bus</source>
        <translation>没有系统总线</translation>
    </message>
    <message>
        <source>There is no PackageKit</source>
        <translation>没有 PackageKit</translation>
    </message>
    <message>
        <source>update Quillbox the way it was installed</source>
        <translation>请以安装 Quillbox 时的方式更新它</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>屏幕</translation>
    </message>
    <message>
        <source>the X server %1</source>
        <translation>X 服务器 %1</translation>
    </message>
    <message>
        <source>extensions %1</source>
        <translation>扩展 %1</translation>
    </message>
    <message>
        <source>the server lacks %1: recording is slower, has no pointer, or knows no monitors</source>
        <translation>服务器缺少 %1：录制会变慢、没有指针，或无法识别显示器</translation>
    </message>
    <message>
        <source>start it inside a desktop session; quillbox encode needs none</source>
        <translation>请在桌面会话中启动；quillbox encode 不需要桌面会话</translation>
    </message>
    <message>
        <source>monitors</source>
        <translation>显示器</translation>
    </message>
    <message>
        <source>windows</source>
        <translation>窗口</translation>
    </message>
    <message>
        <source>virtual monitors</source>
        <translation>虚拟显示器</translation>
    </message>
    <message>
        <source>the portal&apos;s ScreenCast, version %1: %2</source>
        <translation>门户的 ScreenCast，版本 %1：%2</translation>
    </message>
    <message>
        <source>a desktop portal</source>
        <translation>桌面门户</translation>
    </message>
    <message>
        <source>the desktop portal and PipeWire</source>
        <translation>桌面门户和 PipeWire</translation>
    </message>
    <message>
        <source>the desktop will ask which monitor to show</source>
        <translation>桌面会询问要使用哪个显示器</translation>
    </message>
    <message>
        <source>the desktop may remember which monitor to show</source>
        <translation>桌面可能记得要使用哪个显示器</translation>
    </message>
    <message>
        <source>systemctl --user restart xdg-desktop-portal may help</source>
        <translation>systemctl --user restart xdg-desktop-portal 或许有用</translation>
    </message>
    <message>
        <source>The desktop portal shows the screen through PipeWire, which does not run</source>
        <translation>桌面门户通过 PipeWire 提供屏幕，而 PipeWire 未在运行</translation>
    </message>
    <message>
        <source>log in again when it is installed: the portal looks for its pieces only once</source>
        <translation>安装后请重新登录：门户只查找一次其组件</translation>
    </message>
    <message>
        <source>The X server does not answer</source>
        <translation>X 服务器没有应答</translation>
    </message>
    <message>
        <source>a clipboard manager, which keeps clips when Quillbox ends</source>
        <translation>剪贴板管理器，在 Quillbox 结束后保留片段</translation>
    </message>
    <message>
        <source>no clipboard manager: a clip stays while Quillbox runs</source>
        <translation>没有剪贴板管理器：片段仅在 Quillbox 运行期间保留</translation>
    </message>
    <message>
        <source>the X server&apos;s selection</source>
        <translation>X 服务器的选区</translation>
    </message>
    <message>
        <source>There is no display</source>
        <translation>没有显示器</translation>
    </message>
    <message>
        <source>the compositor&apos;s data control</source>
        <translation>合成器的 data control</translation>
    </message>
    <message>
        <source>the toolkit</source>
        <translation>工具包</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>剪贴板</translation>
    </message>
    <message>
        <source>The display does not answer</source>
        <translation>显示器没有应答</translation>
    </message>
    <message>
        <source>File manager</source>
        <translation>文件管理器</translation>
    </message>
    <message>
        <source>a file manager on the bus (FileManager1)</source>
        <translation>总线上的文件管理器（FileManager1）</translation>
    </message>
    <message>
        <source>the portal&apos;s OpenURI, version %1</source>
        <translation>门户的 OpenURI，版本 %1</translation>
    </message>
    <message>
        <source>the file manager, which selects the clip</source>
        <translation>文件管理器，会选中片段</translation>
    </message>
    <message>
        <source>the desktop portal, which opens the folder</source>
        <translation>桌面门户，会打开文件夹</translation>
    </message>
    <message>
        <source>xdg-open, which opens the folder</source>
        <translation>xdg-open，会打开文件夹</translation>
    </message>
    <message>
        <source>Nothing here opens folders</source>
        <translation>此处没有可打开文件夹的程序</translation>
    </message>
    <message>
        <source>Quillbox was not installed as a package</source>
        <translation>Quillbox 不是以软件包形式安装的</translation>
    </message>
    <message>
        <source>Updates are switched off by QUILLBOX_UPDATE_BACKEND</source>
        <translation>更新已被 QUILLBOX_UPDATE_BACKEND 关闭</translation>
    </message>
    <message>
        <source>to choose another monitor, remove %1</source>
        <translation>要选择其他显示器，请删除 %1</translation>
    </message>
    <message>
        <source>the desktop portal; the desktop&apos;s settings tell the keys</source>
        <translation>桌面门户；可在桌面设置中查看按键</translation>
    </message>
    <message>
        <source>the desktop portal: %1</source>
        <translation>桌面门户：%1</translation>
    </message>
    <message>
        <source>start Quillbox and look again: only then the desktop tells what it has bound</source>
        <translation>请启动 Quillbox 后再次查看：那时桌面才会告知绑定了哪些按键</translation>
    </message>
    <message>
        <source>The desktop has bound no key for Quillbox</source>
        <translation>桌面没有为 Quillbox 绑定按键</translation>
    </message>
    <message>
        <source>PipeWire, which brings the screen&apos;s pictures, does not answer</source>
        <translation>传送屏幕画面的 PipeWire 没有应答</translation>
    </message>
    <message>
        <source>systemctl --user restart pipewire wireplumber may help</source>
        <translation>systemctl --user restart pipewire wireplumber 或许有用</translation>
    </message>
    <message>
        <source>PipeWire has no session manager, which connects its programs</source>
        <translation>PipeWire 没有会话管理器来连接其程序</translation>
    </message>
    <message>
        <source>systemctl --user start wireplumber starts one that is installed</source>
        <translation>如果已安装，可用 systemctl --user start wireplumber 启动</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>图像</translation>
    </message>
    <message>
        <source>%1, but not %2</source>
        <translation>%1，但不含 %2</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>录制</translation>
    </message>
    <message numerus="yes">
        <source>%n recording(s) cut off before there was a clip</source>
        <translation>
            <numerusform>%n 个录制在制成片段前中断</numerusform>
        </translation>
    </message>
    <message>
        <source>quillbox recover makes clips of them, quillbox recover --discard removes them</source>
        <translation>quillbox recover 将其制成片段，quillbox recover --discard 将其删除</translation>
    </message>
    <message>
        <source>%1 of the X server</source>
        <translation>X 服务器的 %1</translation>
    </message>
    <message>
        <source>Another program holds %1</source>
        <translation>另一个程序占用了 %1</translation>
    </message>
    <message>
        <source>the desktop portal, once it has been asked for %1</source>
        <translation>桌面门户（在向其请求 %1 之后）</translation>
    </message>
</context>
<context>
    <name>ErrorReport</name>
    <message>
        <source>there is not enough memory for these frames; use fewer or smaller ones</source>
        <translation>内存不足以处理这些帧；请使用更少或更小的帧</translation>
    </message>
    <message>
        <source>%1 is saved, but not what there is to say about it: %2</source>
        <translation>%1 已保存，但有关它的说明无法写出：%2</translation>
    </message>
    <message>
        <source>warning: %1</source>
        <translation>警告：%1</translation>
    </message>
    <message>
        <source>this process may not open enough files; raise the limit with ulimit -n 64</source>
        <translation>此进程可打开的文件数不足；请用 ulimit -n 64 提高上限</translation>
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
        <translation>小于 2 MB 的小 GIF</translation>
    </message>
    <message>
        <source>GitHub</source>
        <translation>GitHub</translation>
    </message>
    <message>
        <source>GIF under 10 MB</source>
        <translation>小于 10 MB 的 GIF</translation>
    </message>
    <message>
        <source>Docs</source>
        <translation>文档</translation>
    </message>
    <message>
        <source>Crisp, balanced quality</source>
        <translation>清晰、均衡的画质</translation>
    </message>
</context>
<context>
    <name>FrameReadError</name>
    <message>
        <source>can&apos;t be opened: %1</source>
        <translation>无法打开：%1</translation>
    </message>
    <message>
        <source>can&apos;t be read: %1</source>
        <translation>无法读取：%1</translation>
    </message>
    <message>
        <source>holds no frame; at least one is needed</source>
        <translation>不含任何帧；至少需要一帧</translation>
    </message>
    <message>
        <source>frame %1 ends after %2 of %3 bytes; %4</source>
        <translation>第 %1 帧在 %3 字节中的第 %2 字节处结束；%4</translation>
    </message>
    <message>
        <source>frame %1 is %2; each side must be 1 to 65535 pixels</source>
        <translation>第 %1 帧为 %2；每边须为 1 至 65535 像素</translation>
    </message>
    <message>
        <source>frame %1 is %2, more than this machine&apos;s memory holds; use smaller frames</source>
        <translation>第 %1 帧为 %2，超出本机内存容量；请使用更小的帧</translation>
    </message>
    <message>
        <source>header has &quot;%1&quot;; expected %2</source>
        <translation>文件头含有“%1”；应为：%2</translation>
    </message>
    <message>
        <source>frame %1 has &quot;%2&quot;; expected %3</source>
        <translation>第 %1 帧含有“%2”；应为：%3</translation>
    </message>
    <message>
        <source>is not an image that can be read; expected PNG, JPEG, GIF or the like, a YUV4MPEG2 stream, or --raw WxH for raw RGBA frames</source>
        <translation>不是可读取的图像；应为 PNG、JPEG、GIF 等格式、YUV4MPEG2 数据流，或用 --raw WxH 指定原始 RGBA 帧</translation>
    </message>
    <message>
        <source>frame %1 can&apos;t be decoded: %2</source>
        <translation>第 %1 帧无法解码：%2</translation>
    </message>
    <message>
        <source>plays for %1 s, more than %2 s; use --source-fps to take its frames one each</source>
        <translation>播放时长 %1 秒，超过 %2 秒；可用 --source-fps 逐帧读取</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>is --raw %1 its true size?</source>
        <translation>--raw %1 是其真实尺寸吗？</translation>
    </message>
    <message>
        <source>a rate like F30:1 or F30000:1001</source>
        <translation>形如 F30:1 或 F30000:1001 的帧率</translation>
    </message>
    <message>
        <source>a YUV4MPEG2 stream (or --raw WxH for raw RGBA frames)</source>
        <translation>YUV4MPEG2 数据流（原始 RGBA 帧请用 --raw WxH）</translation>
    </message>
    <message>
        <source>a whole number of pixels</source>
        <translation>整数像素值</translation>
    </message>
    <message>
        <source>the frame size in its tags W and H</source>
        <translation>标签 W 和 H 中的帧尺寸</translation>
    </message>
    <message>
        <source>XCOLORRANGE=FULL or XCOLORRANGE=LIMITED</source>
        <translation>XCOLORRANGE=FULL 或 XCOLORRANGE=LIMITED</translation>
    </message>
    <message>
        <source>FRAME and its picture; the stream is cut off</source>
        <translation>FRAME 及其画面；数据流被截断</translation>
    </message>
    <message>
        <source>FRAME; the frame before it has another size</source>
        <translation>FRAME；前一帧的尺寸不同</translation>
    </message>
    <message>
        <source>write the stream again</source>
        <translation>请重新写出数据流</translation>
    </message>
    <message>
        <source>became shorter while it was being read; run the command again</source>
        <translation>在读取过程中变短了；请重新运行该命令</translation>
    </message>
    <message>
        <source>is a %1 image, for which a plugin is missing; install qt6-image-formats-plugins (Fedora: qt6-qtimageformats, Arch: qt6-imageformats)</source>
        <translation>是 %1 图像，但缺少所需插件；请安装 qt6-image-formats-plugins（Fedora：qt6-qtimageformats，Arch：qt6-imageformats）</translation>
    </message>
    <message>
        <source>is a video; have FFmpeg take its pictures: ffmpeg -i VIDEO -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o OUT.gif -</source>
        <translation>是视频；请让 FFmpeg 取出其画面：ffmpeg -i VIDEO -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o OUT.gif -</translation>
    </message>
    <message>
        <source>is cut off: not even its first frame is whole; get the file again</source>
        <translation>不完整：连第一帧都不完整；请重新获取该文件</translation>
    </message>
    <message numerus="yes">
        <source>is cut off after %n whole frame(s); get the file again, or --keep-going</source>
        <translation>
            <numerusform>在 %n 个完整帧之后中断；请重新获取该文件，或使用 --keep-going</numerusform>
        </translation>
    </message>
    <message>
        <source>frame %1 is %2, but the first is %3; without --strict it is fitted into that</source>
        <translation>第 %1 帧为 %2，而第一帧为 %3；不加 --strict 则会将其适配到该尺寸</translation>
    </message>
    <message>
        <source>frames are %1, so --crop names a part that they don&apos;t have</source>
        <translation>帧为 %1，--crop 指定的部分不在其中</translation>
    </message>
    <message>
        <source>no image is there; name a folder with images, or a pattern that some fit</source>
        <translation>那里没有图像；请指定含有图像的文件夹，或有图像符合的模式</translation>
    </message>
    <message>
        <source>C420, C422, C444, C411 or Cmono of 8 to 16 bits (with FFmpeg: -pix_fmt yuv444p)</source>
        <translation>8 至 16 位的 C420、C422、C444、C411 或 Cmono（FFmpeg：-pix_fmt yuv444p）</translation>
    </message>
    <message>
        <source>at least one frame in ten minutes</source>
        <translation>十分钟内至少一帧</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>Examples:
  quillbox record --region 0,0,800x600 --duration 3
  quillbox record --select --copy --duration 3
  quillbox record --region 100,50,640x480 -o demo.gif     (Ctrl-C stops and saves)</source>
        <translation>示例：
  quillbox record --region 0,0,800x600 --duration 3
  quillbox record --select --copy --duration 3
  quillbox record --region 100,50,640x480 -o demo.gif     （按 Ctrl-C 停止并保存）</translation>
    </message>
    <message>
        <source>Where the GIF is meant for: its limits on size, width and colours</source>
        <translation>GIF 的用途：决定其大小、宽度和颜色的上限</translation>
    </message>
    <message>
        <source>The GIF to write, - for standard output (default: %1)</source>
        <translation>要写出的 GIF，- 表示标准输出（默认：%1）</translation>
    </message>
    <message>
        <source>Describe the result as a JSON object</source>
        <translation>以 JSON 对象描述结果</translation>
    </message>
    <message>
        <source>Replace OUT if it exists</source>
        <translation>若 OUT 已存在则替换</translation>
    </message>
    <message>
        <source>Let the user drag out a region and record it</source>
        <translation>让用户拖出区域并录制</translation>
    </message>
    <message>
        <source>Stop recording, save and copy the clip, and print where it is</source>
        <translation>停止录制，保存并复制片段，并显示其位置</translation>
    </message>
    <message>
        <source>Stop a recording, or begin one</source>
        <translation>停止录制，或开始录制</translation>
    </message>
    <message>
        <source>Open the panel</source>
        <translation>打开面板</translation>
    </message>
    <message>
        <source>Print what the application is doing</source>
        <translation>显示应用程序当前的状态</translation>
    </message>
    <message>
        <source>End the application</source>
        <translation>结束应用程序</translation>
    </message>
    <message>
        <source>Example:
  quillbox %1</source>
        <translation>示例：
  quillbox %1</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>用法</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>必需</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>显示此帮助并退出</translation>
    </message>
    <message>
        <source>%1 (of the running application)</source>
        <translation>%1（正在运行的应用程序）</translation>
    </message>
    <message>
        <source>Answer with a JSON object</source>
        <translation>以 JSON 对象应答</translation>
    </message>
    <message>
        <source>Print the version</source>
        <translation>显示版本</translation>
    </message>
    <message>
        <source>Turn images, YUV4MPEG2 or raw frames into a GIF</source>
        <translation>将图像、YUV4MPEG2 或原始帧转换为 GIF</translation>
    </message>
    <message>
        <source>beside the first INPUT, with the extension gif</source>
        <translation>与第一个 INPUT 同处，扩展名为 gif</translation>
    </message>
    <message>
        <source>Record a region of the screen as a GIF</source>
        <translation>将屏幕区域录制为 GIF</translation>
    </message>
    <message>
        <source>Left, top and size of the region, points of the main display</source>
        <translation>区域的左、上位置及尺寸，以主显示器的点为单位</translation>
    </message>
    <message>
        <source>Drag the region out on the screen</source>
        <translation>在屏幕上拖出区域</translation>
    </message>
    <message>
        <source>Stop after so many seconds (default: Ctrl-C stops)</source>
        <translation>在若干秒后停止（默认：按 Ctrl-C 停止）</translation>
    </message>
    <message>
        <source>a dated file in the folder Quillbox of your videos</source>
        <translation>视频文件夹下 Quillbox 文件夹中以日期命名的文件</translation>
    </message>
    <message>
        <source>Put the clip on the clipboard, too</source>
        <translation>同时将片段放入剪贴板</translation>
    </message>
    <message>
        <source>List the clips made lately, newest first</source>
        <translation>列出最近的片段，最新的在前</translation>
    </message>
    <message>
        <source>Print them as a JSON array</source>
        <translation>以 JSON 数组显示</translation>
    </message>
    <message>
        <source>Tell what this desktop has to record, copy and so on, and what is missing</source>
        <translation>显示此桌面在录制、复制等方面具备什么、缺少什么</translation>
    </message>
    <message>
        <source>Print it as a JSON object</source>
        <translation>以 JSON 对象显示</translation>
    </message>
    <message>
        <source>The exit status is 0 where the screen can be recorded, else 1.</source>
        <translation>可以录制屏幕时退出状态为 0，否则为 1。</translation>
    </message>
    <message>
        <source>Show every change, as exactly as the preset&apos;s size and width allow</source>
        <translation>在预设的大小和宽度允许的范围内，尽可能精确地显示每一处变化</translation>
    </message>
    <message>
        <source>With --precise: the size instead of the preset&apos;s</source>
        <translation>与 --precise 一起：代替预设的大小</translation>
    </message>
    <message>
        <source>With --precise: the width instead of the preset&apos;s</source>
        <translation>与 --precise 一起：代替预设的宽度</translation>
    </message>
    <message>
        <source>With --precise: the most pictures a second (default: 30)</source>
        <translation>与 --precise 一起：每秒最多的画面数（默认：30）</translation>
    </message>
    <message>
        <source>With --precise: the most colours of a picture (default: 256)</source>
        <translation>与 --precise 一起：每个画面最多的颜色数（默认：256）</translation>
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
        <translation>将屏幕的一部分或一段视频转换为小巧的动态 GIF。
不带命令：启动托盘中的应用程序，一切均可用鼠标完成。

示例：
  quillbox                      （启动应用程序，或显示它）
  quillbox toggle               （用于按键绑定：录制，然后停止并复制）
从脚本中录制区域：
  quillbox record --region 100,100,640x480 --duration 3 --force -o demo.gif
编码其他程序的帧：
  ffmpeg -v error -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - \
    | quillbox encode --matrix bt709 -o clip.gif -
在持续集成中录制程序，无需显示器：
  xvfb-run -s &quot;-screen 0 1280x720x24&quot; \
    sh -c &quot;my-program &amp; quillbox record --region 0,0,1280x720 --duration 3 -o program.gif&quot;

以下命令有更多示例：quillbox encode --help</translation>
    </message>
    <message>
        <source>Examples:
  quillbox encode -o steps.gif step1.png step2.png step3.png --source-fps 1
  quillbox encode -o steps.gif step%02d.png --delay 1.5
  ffmpeg -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o clip.gif -
  quillbox encode --raw 1280x720 --preset github capture.rgba</source>
        <translation>示例：
  quillbox encode -o steps.gif step1.png step2.png step3.png --source-fps 1
  quillbox encode -o steps.gif step%02d.png --delay 1.5
  ffmpeg -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o clip.gif -
  quillbox encode --raw 1280x720 --preset github capture.rgba</translation>
    </message>
    <message>
        <source>Print neither progress nor the result, unless as JSON</source>
        <translation>既不显示进度也不显示结果（JSON 除外）</translation>
    </message>
    <message>
        <source>Shrink wider frames to so many pixels; with --precise, instead of the preset&apos;s width</source>
        <translation>将更宽的帧缩小到这么多像素；与 --precise 一起时代替预设的宽度</translation>
    </message>
    <message>
        <source>the text can&apos;t be written to standard output</source>
        <translation>无法将文本写入标准输出</translation>
    </message>
    <message>
        <source>Images, one frame each, a folder of them, or a pattern like f%03d.png; or one animated image; or one YUV4MPEG2 stream; - for standard input</source>
        <translation>图像（每张一帧）、装有图像的文件夹，或 f%03d.png 这样的模式；或一个动画图像；或一个 YUV4MPEG2 流；- 表示标准输入</translation>
    </message>
    <message>
        <source>Frames per second of the input, like 12, 0.5 or 30000/1001 (default: its own; else 1 for several images, 30 for raw frames)</source>
        <translation>输入的每秒帧数，如 12、0.5 或 30000/1001（默认：其自身的值；否则多张图像为 1，原始帧为 30）</translation>
    </message>
    <message>
        <source>Show each frame of the input for so many seconds; the other way to say --source-fps</source>
        <translation>输入的每帧显示这么多秒；--source-fps 的另一种写法</translation>
    </message>
    <message>
        <source>INPUT is raw frames of this size, without padding</source>
        <translation>INPUT 是此尺寸的原始帧，无填充</translation>
    </message>
    <message>
        <source>Take this part of each frame: left, top and size</source>
        <translation>取每帧的这一部分：左、上和尺寸</translation>
    </message>
    <message>
        <source>Play the GIF so many times (default: 0, for ever)</source>
        <translation>GIF 播放这么多次（默认：0，无限循环）</translation>
    </message>
    <message>
        <source>Encode with so many threads (default: one a core)</source>
        <translation>用这么多线程编码（默认：每核一个）</translation>
    </message>
    <message>
        <source>By which standard the YUV4MPEG2 stream has its colours (default: bt709 from 720 rows on, else bt601)</source>
        <translation>YUV4MPEG2 流的颜色所依标准（默认：720 行及以上为 bt709，否则 bt601）</translation>
    </message>
    <message>
        <source>Refuse images of another size than the first instead of fitting them into it</source>
        <translation>拒绝与第一张尺寸不同的图像，而不是适配它们</translation>
    </message>
    <message>
        <source>Leave out images and frames that are damaged or cut off, and say how many</source>
        <translation>略去损坏或不完整的图像和帧，并说明数量</translation>
    </message>
    <message>
        <source>Print the help of a command</source>
        <translation>显示某个命令的帮助</translation>
    </message>
    <message>
        <source>The command; none for all of them</source>
        <translation>命令；不写则为全部</translation>
    </message>
    <message>
        <source>Make clips of recordings that the program&apos;s end cut off</source>
        <translation>将因程序结束而中断的录制制成片段</translation>
    </message>
    <message>
        <source>Only list them: when each began, and how long it is</source>
        <translation>仅列出：各自的开始时间和时长</translation>
    </message>
    <message>
        <source>Remove them instead</source>
        <translation>改为将其删除</translation>
    </message>
    <message>
        <source>Make another clip of what was recorded last, save and copy it</source>
        <translation>用最近一次录制的内容再做一个剪辑，保存并复制</translation>
    </message>
    <message>
        <source>Keep every change in this clip</source>
        <translation>在这个剪辑中保留每一处变化</translation>
    </message>
    <message>
        <source>Where the GIF is meant for (default: as for the clip before)</source>
        <translation>GIF 的用途（默认：与上一个剪辑相同）</translation>
    </message>
    <message>
        <source>Mix colours that the palette lacks; not with --precise</source>
        <translation>混合调色板中没有的颜色；不能与 --precise 一起使用</translation>
    </message>
    <message>
        <source>With --raw: the bytes of a pixel</source>
        <translation>与 --raw 一起使用：一个像素的字节</translation>
    </message>
    <message>
        <source>What shows through transparent pixels (default: white; raw frames are opaque unless this is given)</source>
        <translation>透过透明像素显示的颜色（默认为白色；不指定时原始帧视为不透明）</translation>
    </message>
</context>
<context>
    <name>HistoryCommand</name>
    <message>
        <source>the list can&apos;t be written to standard output</source>
        <translation>无法将列表写入标准输出</translation>
    </message>
</context>
<context>
    <name>HotkeyNotice</name>
    <message>
        <source>This desktop has given Quillbox no hotkey. Bind “quillbox toggle” to a key in its settings.</source>
        <translation>此桌面没有为 Quillbox 分配快捷键。请在其设置中将“quillbox toggle”绑定到按键。</translation>
    </message>
    <message>
        <source>This desktop has no global hotkeys. Bind “quillbox toggle” to a key in its settings.</source>
        <translation>此桌面不支持全局快捷键。请在其设置中将“quillbox toggle”绑定到按键。</translation>
    </message>
    <message>
        <source>No hotkey, as you decided. “quillbox toggle” can be bound to a key; “quillbox doctor” tells how to be asked again.</source>
        <translation>按您的决定，不使用快捷键。可将“quillbox toggle”绑定到按键；“quillbox doctor”会说明如何再次询问。</translation>
    </message>
    <message>
        <source>The desktop may ask whether Quillbox may have this hotkey.</source>
        <translation>桌面可能会询问是否允许 Quillbox 使用此快捷键。</translation>
    </message>
    <message>
        <source>The desktop&apos;s settings tell the keys, and can change them.</source>
        <translation>可在桌面设置中查看和更改按键。</translation>
    </message>
    <message>
        <source>The desktop has set the keys to: %1. Its settings can change them.</source>
        <translation>桌面设定的按键为：%1。可在其设置中更改。</translation>
    </message>
    <message>
        <source>Super + Shift + %1</source>
        <translation>Super + Shift + %1</translation>
    </message>
    <message>
        <source>Another program uses %1. Quillbox gets it as soon as it is free; “quillbox toggle” can be bound to any other key.</source>
        <translation>%1 正被另一个程序使用。空闲后 Quillbox 会立即使用它；“quillbox toggle”可以绑定到任何其他按键。</translation>
    </message>
    <message>
        <source>⌘ is the Super key: press %1 in any program.</source>
        <translation>⌘ 即 Super 键：在任意程序中按 %1。</translation>
    </message>
    <message>
        <source>Press “Record Region”, not ⌘⇧2.</source>
        <translation>请按“录制区域”，而不是 ⌘⇧2。</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <comment>two sentences</comment>
        <translation>%1%2</translation>
    </message>
</context>
<context>
    <name>InputReader</name>
    <message numerus="yes">
        <source>%1; the %n frame(s) before that are in the clip</source>
        <translation>
            <numerusform>%1；此前的 %n 帧已在片段中</numerusform>
        </translation>
    </message>
    <message>
        <source>images left out: %1 of %2; %3</source>
        <translation>略去的图像：%2 张中的 %1 张；%3</translation>
    </message>
</context>
<context>
    <name>OutputFileError</name>
    <message>
        <source>the file exists already; use --force to replace it</source>
        <translation>文件已存在；使用 --force 可替换它</translation>
    </message>
    <message>
        <source>there is no folder %1; create it first</source>
        <translation>文件夹 %1 不存在；请先创建</translation>
    </message>
    <message>
        <source>it is a folder; name a file</source>
        <translation>这是文件夹；请指定一个文件</translation>
    </message>
    <message>
        <source>it is an input itself; name another file with -o</source>
        <translation>它本身就是输入；请用 -o 指定另一个文件</translation>
    </message>
    <message>
        <source>no space left; free some or save elsewhere</source>
        <translation>空间不足；请释放空间或保存到别处</translation>
    </message>
    <message>
        <source>%1: can&apos;t be saved: %2</source>
        <translation>%1：无法保存：%2</translation>
    </message>
    <message>
        <source>it is larger than a file may be here (ulimit -f)</source>
        <translation>它超出了此处允许的文件大小（ulimit -f）</translation>
    </message>
</context>
<context>
    <name>ParserMessages</name>
    <message>
        <source>%1 is required</source>
        <translation>缺少 %1</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>意外的参数：%1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>意外的参数：%1</translation>
    </message>
    <message>
        <source>%1: 1 required %2 missing</source>
        <translation>%1：缺少值 %2</translation>
    </message>
</context>
<context>
    <name>ProgressLine</name>
    <message>
        <source>reading</source>
        <translation>正在读取</translation>
    </message>
    <message>
        <source>saving</source>
        <translation>正在保存</translation>
    </message>
    <message numerus="yes">
        <source>attempt %1: %n colour(s), %2 %</source>
        <translation>
            <numerusform>第 %1 次尝试：%n 种颜色，%2 %</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>recording %1 s, %n frame(s); Ctrl-C stops</source>
        <translation>
            <numerusform>正在录制：%1 秒，%n 帧；按 Ctrl-C 停止</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>palette %1 of %2: %n colour(s), %3 %</source>
        <translation>
            <numerusform>调色板 %1/%2：%n 色，%3 %</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; Ctrl-C again ends this without a clip</source>
        <translation>%1；再按一次 Ctrl-C 将结束且不生成剪辑</translation>
    </message>
</context>
<context>
    <name>QuillboxApp</name>
    <message>
        <source>A new version of Quillbox is available</source>
        <translation>Quillbox 有新版本可用</translation>
    </message>
    <message>
        <source>Quillbox %1 is available</source>
        <translation>Quillbox %1 可用</translation>
    </message>
    <message>
        <source>“Check for Updates…” in the panel installs it.</source>
        <translation>面板中的“检查更新…”可安装它。</translation>
    </message>
    <message>
        <source>The recording goes on</source>
        <translation>录制仍在继续</translation>
    </message>
    <message>
        <source>It could not be prepared for the clip meanwhile. Making the clip will take longer.</source>
        <translation>录制期间无法为片段做准备。制作片段将需要更长时间。</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>Quillbox was running twice</source>
        <translation>Quillbox 曾同时运行了两个</translation>
    </message>
    <message>
        <source>The desktop&apos;s session bus had been restarted. The one that was started first has ended; its clips are saved.</source>
        <translation>桌面的会话总线已重新启动。先启动的那个已退出；其剪辑均已保存。</translation>
    </message>
</context>
<context>
    <name>RecordCommand</name>
    <message>
        <source>There is no display to record. Set DISPLAY to an X11 display, such as :0</source>
        <translation>没有可录制的显示器。请将 DISPLAY 设为 X11 显示器，例如 :0</translation>
    </message>
    <message>
        <source>Couldn&apos;t start recording: %1.</source>
        <translation>无法开始录制：%1。</translation>
    </message>
    <message>
        <source>The recording ended early: %1. What was recorded is kept.</source>
        <translation>录制提前结束：%1。已录制的内容会保留。</translation>
    </message>
    <message>
        <source>the clip stays on the clipboard until something else is copied; Ctrl-C ends this program</source>
        <translation>在复制其他内容之前，片段会留在剪贴板中；按 Ctrl-C 结束此程序</translation>
    </message>
    <message>
        <source>nothing was selected, so nothing was recorded</source>
        <translation>未选择任何区域，因此没有录制</translation>
    </message>
    <message>
        <source>%1. The desktop application does it: start quillbox first.</source>
        <translation>%1。桌面应用程序可以做到：请先启动 quillbox。</translation>
    </message>
    <message>
        <source>%1.</source>
        <translation>%1。</translation>
    </message>
    <message>
        <source>the clip gets onto the clipboard when the panel is opened: quillbox show</source>
        <translation>打开面板后片段会进入剪贴板：quillbox show</translation>
    </message>
    <message>
        <source>the clip is saved, but it couldn&apos;t be put on the clipboard</source>
        <translation>片段已保存，但无法放入剪贴板</translation>
    </message>
    <message>
        <source>the clip could not be copied, so nothing was recorded. %1</source>
        <translation>无法复制片段，因此没有录制。%1</translation>
    </message>
    <message>
        <source>warning: only %1x%2 of the region&apos;s %3x%4 are on the main display; the rest is not in the clip</source>
        <translation>警告：区域 %3x%4 中只有 %1x%2 位于主显示器上；其余部分不在剪辑中</translation>
    </message>
    <message>
        <source>warning: the clip may begin with remains of the selection: the desktop took more than two seconds to remove them from the screen</source>
        <translation>警告：剪辑开头可能残留选区画面：桌面用了两秒以上才将其从屏幕上移除</translation>
    </message>
</context>
<context>
    <name>RecordingCoordinator</name>
    <message>
        <source>an unknown error</source>
        <translation>未知错误</translation>
    </message>
    <message>
        <source>There is no display to record</source>
        <translation>没有可录制的显示器</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>There is not enough memory for this recording</source>
        <translation>内存不足，无法完成此录制</translation>
    </message>
    <message>
        <source>Couldn&apos;t start recording: %1</source>
        <translation>无法开始录制：%1</translation>
    </message>
    <message>
        <source>No frames captured.</source>
        <translation>没有捕获到任何帧。</translation>
    </message>
    <message>
        <source>Couldn&apos;t save clip: %1</source>
        <translation>无法保存片段：%1</translation>
    </message>
    <message>
        <source>Region too large to encode (%1×%2). Max is %3 per side.</source>
        <translation>区域过大，无法编码（%1×%2）。每边最大为 %3。</translation>
    </message>
</context>
<context>
    <name>RecoverCommand</name>
    <message>
        <source>no recording was cut off; there is nothing to recover</source>
        <translation>没有中断的录制；没有可恢复的内容</translation>
    </message>
    <message>
        <source>several recordings were cut off; leave out -o to make a clip of each</source>
        <translation>有多个中断的录制；请去掉 -o，以便分别制作片段</translation>
    </message>
</context>
<context>
    <name>ResultReport</name>
    <message>
        <source>%1: %2, %3, %4, %5 fps, %6 s, %7</source>
        <translation>%1：%2，%3，%4，%5 fps，%6 秒，%7</translation>
    </message>
    <message numerus="yes">
        <source>%n frame(s)</source>
        <translation>
            <numerusform>%n 帧</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n colour(s)</source>
        <translation>
            <numerusform>%n 种颜色</numerusform>
        </translation>
    </message>
    <message>
        <source>dithered</source>
        <translation>有抖动</translation>
    </message>
    <message>
        <source>not dithered</source>
        <translation>无抖动</translation>
    </message>
    <message>
        <source>; over the %1 MB budget of %2: record less, or a smaller part of the screen</source>
        <translation>；超出 %2 的 %1 MB 上限：请缩短录制时间或缩小屏幕区域</translation>
    </message>
    <message>
        <source>; over the %1 of --max-size: record less, or a smaller part of the screen</source>
        <translation>；超出 --max-size 的 %1：请录制得短一些，或录制屏幕上更小的一块</translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: at most %2 a second, and changes of less than 1 % merge (--precise keeps them)</source>
        <translation>
            <numerusform>；%n 幅画面保留 %1 幅：每秒至多 %2 幅，小于 1 % 的变化会合并（--precise 会保留）</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: changes of less than 1 % merge (--precise keeps them)</source>
        <translation>
            <numerusform>；%n 幅画面保留 %1 幅：小于 1 % 的变化会合并（--precise 会保留）</numerusform>
        </translation>
    </message>
    <message>
        <source>; over the %1 MB budget of %2: try --max-width, --crop, fewer frames or another --preset</source>
        <translation>；超出 %2 的 %1 MB 限额：请尝试 --max-width、--crop、减少帧数或换一个 --preset</translation>
    </message>
    <message>
        <source>picture %1 dB less exact</source>
        <translation>画面精确度降低 %1 dB</translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) left out</source>
        <translation>
            <numerusform>省略 %n 处变化</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 % narrower</source>
        <translation>宽度缩小 %1 %</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1，%2</translation>
    </message>
    <message>
        <source>; to fit: %1</source>
        <translation>；为满足大小限制：%1</translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: at most %2 a second (--max-fps)</source>
        <translation>
            <numerusform>；%n 幅画面中保留 %1 幅：每秒最多 %2 幅（--max-fps）</numerusform>
        </translation>
    </message>
    <message>
        <source>, every change kept</source>
        <translation>，保留每处变化</translation>
    </message>
    <message>
        <source>%1: %2, %3, %4, %5 s</source>
        <translation>%1：%2，%3，%4，%5 秒</translation>
    </message>
    <message>
        <source>; over the %1 of --max-size: try --max-width, --crop or fewer frames</source>
        <translation>；超过 --max-size 的 %1：请尝试 --max-width、--crop 或减少帧数</translation>
    </message>
</context>
<context>
    <name>StatusReport</name>
    <message numerus="yes">
        <source>%n recording(s) cut off; quillbox recover makes clips</source>
        <translation>
            <numerusform>%n 个录制中断；quillbox recover 可将其制成片段</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Streams</name>
    <message>
        <source>standard output</source>
        <translation>标准输出</translation>
    </message>
    <message>
        <source>standard error</source>
        <translation>标准错误输出</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>标准输入</translation>
    </message>
</context>
<context>
    <name>UpdaterController</name>
    <message>
        <source>The system&apos;s software service can&apos;t be reached.</source>
        <translation>无法连接到系统的软件服务。</translation>
    </message>
    <message>
        <source>The system&apos;s software service ended while it was working.</source>
        <translation>系统的软件服务在工作时退出。</translation>
    </message>
    <message>
        <source>This copy of Quillbox was not installed as a package, so the system can&apos;t update it.</source>
        <translation>此 Quillbox 并非以软件包形式安装，因此系统无法更新它。</translation>
    </message>
    <message>
        <source>None of this computer&apos;s package sources offers Quillbox.</source>
        <translation>此电脑的软件包源均不提供 Quillbox。</translation>
    </message>
    <message>
        <source>You were not allowed to do this, or no password was given.</source>
        <translation>您无权执行此操作，或未输入密码。</translation>
    </message>
    <message>
        <source>The package sources can&apos;t be reached. Is this computer online?</source>
        <translation>无法连接软件包源。此电脑是否联网？</translation>
    </message>
    <message>
        <source>The new version isn&apos;t signed by anybody this system trusts, so it was not installed.</source>
        <translation>新版本没有此系统信任的签名，因此未安装。</translation>
    </message>
    <message>
        <source>Another program is installing software. Try again once it is done.</source>
        <translation>其他程序正在安装软件。请在其完成后重试。</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>更新已取消。</translation>
    </message>
    <message>
        <source>The system reported success, but the old version is still installed.</source>
        <translation>系统报告成功，但安装的仍是旧版本。</translation>
    </message>
    <message>
        <source>The system&apos;s software service didn&apos;t say why.</source>
        <translation>系统的软件服务未说明原因。</translation>
    </message>
    <message>
        <source>The system&apos;s software service says: %1</source>
        <translation>系统的软件服务提示：%1</translation>
    </message>
    <message>
        <source>The package sources can&apos;t be reached, so there may be a newer version still.</source>
        <translation>无法连接软件包源，因此可能还有更新的版本。</translation>
    </message>
    <message>
        <source>The package sources were not asked anew, so there may be a newer version still.</source>
        <translation>未重新查询软件包源，因此可能还有更新的版本。</translation>
    </message>
    <message>
        <source>The package sources couldn&apos;t be read anew, so there may be a newer version still.</source>
        <translation>无法重新读取软件包源，因此可能还有更新的版本。</translation>
    </message>
    <message>
        <source>Updates are switched off by QUILLBOX_UPDATE_BACKEND.</source>
        <translation>更新已被 QUILLBOX_UPDATE_BACKEND 关闭。</translation>
    </message>
</context>
<context>
    <name>Usage</name>
    <message>
        <source>standard output is a terminal, which can&apos;t show a GIF; redirect it, or name a file with -o</source>
        <translation>标准输出是终端，无法显示 GIF；请重定向，或用 -o 指定文件</translation>
    </message>
    <message>
        <source>--preset: there is no preset &quot;%1&quot;; use slack, github or docs</source>
        <translation>--preset：没有预设“%1”；请使用 slack、github 或 docs</translation>
    </message>
    <message>
        <source>-o: the name is empty; name a file, or - for standard output</source>
        <translation>-o：名称为空；请指定文件，或用 - 表示标准输出</translation>
    </message>
    <message>
        <source>--dither: there is no &quot;%1&quot;; use auto, always or never</source>
        <translation>--dither：没有“%1”；请使用 auto、always 或 never</translation>
    </message>
    <message>
        <source>--raw: &quot;%1&quot; is not a size; write it like 1280x720</source>
        <translation>--raw：“%1”不是尺寸；请写成 1280x720 的形式</translation>
    </message>
    <message>
        <source>name the region with --region X,Y,WxH, or drag it out with --select</source>
        <translation>请用 --region X,Y,WxH 指定区域，或用 --select 拖出区域</translation>
    </message>
    <message>
        <source>--region: &quot;%1&quot; is not a region; write it like 100,50,640x480 (left, top, size)</source>
        <translation>--region：“%1”不是区域；请写成 100,50,640x480（左、上、尺寸）的形式</translation>
    </message>
    <message>
        <source>--copy: the clipboard needs a file; leave out -o - or --copy</source>
        <translation>--copy：剪贴板需要文件；请去掉 -o - 或 --copy</translation>
    </message>
    <message>
        <source>--duration: &quot;%1&quot; is not a number of seconds above 0, at most 86400</source>
        <translation>--duration：“%1”不是大于 0 且不超过 86400 的秒数</translation>
    </message>
    <message>
        <source>%1; see %2</source>
        <translation>%1；参见 %2</translation>
    </message>
    <message>
        <source>this INPUT gives the GIF no name; add one, like -o clip.gif</source>
        <translation>此 INPUT 无法为 GIF 命名；请添加名称，例如 -o clip.gif</translation>
    </message>
    <message>
        <source>%1 is a YUV4MPEG2 stream; give it alone</source>
        <translation>%1 是 YUV4MPEG2 数据流；请单独给出</translation>
    </message>
    <message>
        <source>--raw: give one INPUT with all frames, one after another</source>
        <translation>--raw：请给出一个 INPUT，其中依次包含所有帧</translation>
    </message>
    <message>
        <source>standard input must be the only INPUT</source>
        <translation>标准输入必须是唯一的 INPUT</translation>
    </message>
    <message>
        <source>%1 belongs to --precise; add that</source>
        <translation>%1 要与 --precise 一起使用；请加上它</translation>
    </message>
    <message>
        <source>--max-size: &quot;%1&quot; is not a size; write it like 750K or 1.5M</source>
        <translation>--max-size：“%1”不是大小；请写成 750K 或 1.5M 这样</translation>
    </message>
    <message>
        <source>--max-width: use a number of pixels from %1 to %2</source>
        <translation>--max-width：请使用 %1 到 %2 的像素数</translation>
    </message>
    <message>
        <source>--max-fps: use a number of pictures a second from %1 to %2</source>
        <translation>--max-fps：请使用 %1 到 %2 的每秒画面数</translation>
    </message>
    <message>
        <source>--colors: use a number of colours from %1 to %2</source>
        <translation>--colors：请使用 %1 到 %2 的颜色数</translation>
    </message>
    <message>
        <source>-o: &quot;%1&quot; is no name for a GIF; let it end in .gif</source>
        <translation>-o：“%1”不是 GIF 的名称；请以 .gif 结尾</translation>
    </message>
    <message>
        <source>--crop: &quot;%1&quot; is not a part; write it like 10,20,640x480 (left, top, size)</source>
        <translation>--crop：“%1”不是一个部分；请写成 10,20,640x480（左、上、尺寸）</translation>
    </message>
    <message>
        <source>--matrix: there is no &quot;%1&quot;; use bt601, bt709 or bt2020</source>
        <translation>--matrix：没有“%1”；请用 bt601、bt709 或 bt2020</translation>
    </message>
    <message>
        <source>--background: &quot;%1&quot; is not a colour; write it like #FFFFFF, white or black</source>
        <translation>--background：“%1”不是颜色；请写成 #FFFFFF、white 或 black</translation>
    </message>
    <message>
        <source>--raw-format: there is no &quot;%1&quot;; use rgba, bgra, rgb or bgr</source>
        <translation>--raw-format：没有“%1”；请用 rgba、bgra、rgb 或 bgr</translation>
    </message>
    <message>
        <source>--source-fps: &quot;%1&quot; is not a number of frames per second; write it like 12, 29.97 or 30000/1001, 1000 at most</source>
        <translation>--source-fps：“%1”不是每秒帧数；请写成 12、29.97 或 30000/1001，至多 1000</translation>
    </message>
    <message>
        <source>--delay and --source-fps say the same; use one of them</source>
        <translation>--delay 和 --source-fps 含义相同；请只用其一</translation>
    </message>
    <message>
        <source>--delay: &quot;%1&quot; is not a number of seconds from 0.001 to 655.35</source>
        <translation>--delay：“%1”不是 0.001 到 655.35 之间的秒数</translation>
    </message>
    <message>
        <source>--raw: &quot;%1&quot; can&apos;t be; each side must be 1 to 65535 pixels</source>
        <translation>--raw：“%1”不可能；每边须为 1 到 65535 像素</translation>
    </message>
    <message>
        <source>--threads: use a number from %1 to %2</source>
        <translation>--threads：请使用 %1 到 %2 之间的数</translation>
    </message>
    <message>
        <source>--loop: use a number from %1 to %2</source>
        <translation>--loop：请使用 %1 到 %2 之间的数</translation>
    </message>
    <message>
        <source>help: there is no command &quot;%1&quot;; see quillbox --help</source>
        <translation>help：没有命令“%1”；请见 quillbox --help</translation>
    </message>
    <message>
        <source>QUILLBOX_RECORDING_MEMORY is &quot;%1&quot;; make it a whole number of megabytes, or unset it</source>
        <translation>QUILLBOX_RECORDING_MEMORY 为“%1”；请设为整数兆字节，或取消设置</translation>
    </message>
    <message>
        <source>standard input is a terminal; pipe an image, a YUV4MPEG2 stream or raw frames into it</source>
        <translation>标准输入是终端；请将图像、YUV4MPEG2 流或原始帧通过管道送入</translation>
    </message>
    <message>
        <source>--list and --discard can&apos;t be had at once; use one of them</source>
        <translation>--list 和 --discard 不能同时使用；请使用其中一个</translation>
    </message>
    <message>
        <source>--region and --select were both given; use one of them to say what to record</source>
        <translation>同时给出了 --region 和 --select；请只用其中一个来指定录制范围</translation>
    </message>
    <message>
        <source>--dither: --precise mixes no colours; leave out one of them</source>
        <translation>--dither：--precise 不混合颜色；请去掉其中一个</translation>
    </message>
    <message>
        <source>%1 belongs to --raw; add that</source>
        <translation>%1 要与 --raw 一起使用；请加上它</translation>
    </message>
    <message>
        <source>--matrix: raw frames are red, green and blue; leave it out</source>
        <translation>--matrix：原始帧由红、绿、蓝组成；请去掉它</translation>
    </message>
    <message>
        <source>--background: %1 frames have no transparency; leave it out</source>
        <translation>--background：%1 帧没有透明度；请去掉它</translation>
    </message>
    <message>
        <source>QUILLBOX_JOURNAL is &quot;%1&quot;; set it to off to keep no recording on disk, or unset it</source>
        <translation>QUILLBOX_JOURNAL 为“%1”；设为 off 则不在磁盘上保留录制内容，或取消设置</translation>
    </message>
</context>
<context>
    <name>quillbox::ApplicationService</name>
    <message>
        <source>Nothing is being recorded</source>
        <translation>当前没有在录制</translation>
    </message>
    <message>
        <source>A clip is being made already</source>
        <translation>已经在制作剪辑</translation>
    </message>
    <message>
        <source>Nothing has been recorded since Quillbox was started</source>
        <translation>自 Quillbox 启动以来还没有录制过任何内容</translation>
    </message>
    <message>
        <source>There is no preset “%1”</source>
        <translation>没有名为“%1”的预设</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipActions</name>
    <message>
        <source>No program opens the clip.</source>
        <translation>没有程序可以打开该片段。</translation>
    </message>
    <message>
        <source>The clip can&apos;t be read.</source>
        <translation>无法读取该片段。</translation>
    </message>
    <message>
        <source>The clip could not be moved to the trash.</source>
        <translation>无法将该片段移到回收站。</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipNotices</name>
    <message>
        <source>The recording ended early</source>
        <translation>录制提前结束</translation>
    </message>
    <message>
        <source>%1. What was recorded is kept.</source>
        <translation>%1。已录制的内容会保留。</translation>
    </message>
    <message>
        <source>The clip is ready to paste</source>
        <translation>片段可以粘贴了</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>No clip was made</source>
        <translation>没有生成片段</translation>
    </message>
    <message>
        <source>The clip may begin with remains of the selection</source>
        <translation>剪辑开头可能残留选区画面</translation>
    </message>
    <message>
        <source>The desktop took more than two seconds to remove them from the screen.</source>
        <translation>桌面用了两秒以上才将其从屏幕上移除。</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipOffers</name>
    <message numerus="yes">
        <source>%1 of %2 · shows %3 of %Ln recorded picture(s)</source>
        <translation>
            <numerusform>%1 / %2 · 显示了所录 %Ln 个画面中的 %3 个</numerusform>
        </translation>
    </message>
    <message>
        <source>Make it sharper</source>
        <translation>做得更清晰</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Save elsewhere…</source>
        <translation>保存到别处…</translation>
    </message>
    <message>
        <source>Again as %1</source>
        <translation>再做一个用于 %1 的</translation>
    </message>
    <message>
        <source>%1 over the %2 budget of %3</source>
        <translation>超出 %3 的 %2 上限 %1</translation>
    </message>
    <message numerus="yes">
        <source> · shows %1 of %Ln recorded picture(s)</source>
        <translation>
            <numerusform> · 显示了所录 %Ln 个画面中的 %1 个</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>quillbox::ClipPreview</name>
    <message>
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 像素</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipResult</name>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>显示</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipSaveDialog</name>
    <message>
        <source>Save Clip</source>
        <translation>保存剪辑</translation>
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
        <translation>一段录制被中断且已损坏，无法从中生成片段。</translation>
    </message>
    <message>
        <source>A recording from %1 was cut off (%2 s).</source>
        <translation>%1 的录制被中断（%2 秒）。</translation>
    </message>
    <message>
        <source>Make the clip</source>
        <translation>生成片段</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>丢弃</translation>
    </message>
    <message>
        <source>Discard for good</source>
        <translation>永久丢弃</translation>
    </message>
    <message>
        <source>Keep it</source>
        <translation>保留</translation>
    </message>
</context>
<context>
    <name>quillbox::EdgeStop</name>
    <message>
        <source>Rest the pointer at the upper edge of the screen to see this again.</source>
        <translation>将指针停在屏幕上边缘即可再次看到此控件。</translation>
    </message>
</context>
<context>
    <name>quillbox::FirstUseCard</name>
    <message>
        <source>How it works</source>
        <translation>使用方法</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>知道了</translation>
    </message>
    <message>
        <source>Quillbox waits in the tray of your desktop. Click its icon to open this panel.</source>
        <translation>Quillbox 驻留在桌面的系统托盘中。点击其图标即可打开此面板。</translation>
    </message>
    <message>
        <source>This desktop has no tray for an icon. Start Quillbox again to open this panel.</source>
        <translation>此桌面没有可放置图标的系统托盘。再次启动 Quillbox 即可打开此面板。</translation>
    </message>
    <message>
        <source>Clips are copied, ready to paste, and saved in %1.</source>
        <translation>片段会复制到剪贴板，可直接粘贴，并保存在 %1 中。</translation>
    </message>
    <message>
        <source>Press %1 (⌘⇧2) in any program and drag out a region to record it.</source>
        <translation>在任意程序中按 %1 (⌘⇧2)，然后拖出要录制的区域。</translation>
    </message>
</context>
<context>
    <name>quillbox::HistoryNotice</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
</context>
<context>
    <name>quillbox::HistoryPanel</name>
    <message>
        <source>Recent Clips</source>
        <translation>最近的片段</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清空</translation>
    </message>
    <message>
        <source>No clips yet</source>
        <translation>还没有片段</translation>
    </message>
    <message>
        <source>Your recorded clips will show up here.</source>
        <translation>您录制的片段将显示在这里。</translation>
    </message>
    <message>
        <source>The files are still there.</source>
        <translation>文件仍然保留。</translation>
    </message>
    <message>
        <source>Move “%1” to the trash?</source>
        <translation>将“%1”移到回收站？</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>移到回收站</translation>
    </message>
</context>
<context>
    <name>quillbox::HistoryRow</name>
    <message>
        <source>clip</source>
        <translation>片段</translation>
    </message>
    <message>
        <source>· %1s</source>
        <translation>· %1 秒</translation>
    </message>
    <message>
        <source>Reveal in Finder</source>
        <translation>在文件管理器中显示</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>Move to Trash…</source>
        <translation>移到回收站…</translation>
    </message>
</context>
<context>
    <name>quillbox::MonitorNotice</name>
    <message>
        <source>Recording is possible on %1 only. Drag there.</source>
        <translation>只能在 %1 上录制。请在那里拖动。</translation>
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
        <translation>复制</translation>
    </message>
    <message>
        <source>Puts the clip on the clipboard</source>
        <translation>将片段放入剪贴板</translation>
    </message>
    <message>
        <source>The clip is not on the clipboard yet.</source>
        <translation>片段尚未放入剪贴板。</translation>
    </message>
</context>
<context>
    <name>quillbox::PortalHotkey</name>
    <message>
        <source>Record a region of the screen</source>
        <translation>录制屏幕区域</translation>
    </message>
</context>
<context>
    <name>quillbox::RecorderHUD</name>
    <message>
        <source>Press ⌘⇧2 or Record to capture a region.</source>
        <translation>按 ⌘⇧2 或“录制区域”以捕获区域。</translation>
    </message>
    <message>
        <source>Drag to select a region…</source>
        <translation>拖动以选择区域…</translation>
    </message>
    <message>
        <source>Recording…</source>
        <translation>正在录制…</translation>
    </message>
    <message>
        <source>Optimizing GIF…</source>
        <translation>正在优化 GIF…</translation>
    </message>
    <message>
        <source>Copied — %1 · %2</source>
        <translation>已复制 — %1 · %2</translation>
    </message>
    <message>
        <source>Quillbox</source>
        <translation>Quillbox</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>预设</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>进度</translation>
    </message>
    <message>
        <source>Finish now</source>
        <translation>立即完成</translation>
    </message>
    <message>
        <source>Ends with the smallest file made so far</source>
        <translation>以目前得到的最小文件结束</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>检查更新…</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Stop &amp; Copy</source>
        <translation>停止并复制</translation>
    </message>
    <message>
        <source>Record Region</source>
        <translation>录制区域</translation>
    </message>
    <message>
        <source>Keep every change</source>
        <translation>保留每一处变化</translation>
    </message>
    <message>
        <source>Shows all that changed, as sharp as the size allows</source>
        <translation>在大小允许的范围内，尽可能清晰地显示所有变化</translation>
    </message>
</context>
<context>
    <name>quillbox::SelectionWindow</name>
    <message>
        <source>Select a region</source>
        <translation>选择区域</translation>
    </message>
    <message>
        <source>Drag to record · Esc cancels</source>
        <translation>拖动以录制 · Esc 取消</translation>
    </message>
</context>
<context>
    <name>quillbox::SettingsView</name>
    <message>
        <source>Capture</source>
        <translation>捕获</translation>
    </message>
    <message>
        <source>Global hotkey</source>
        <translation>全局快捷键</translation>
    </message>
    <message>
        <source>⌘⇧2</source>
        <translation>⌘⇧2</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>隐私</translation>
    </message>
    <message>
        <source>Everything stays on your Mac. No cloud, no telemetry, no account.</source>
        <translation>一切都留在您的电脑上。没有云、没有遥测、没有账户。</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>General</source>
        <translation>常规</translation>
    </message>
</context>
<context>
    <name>quillbox::StopControl</name>
    <message>
        <source>Recording — Quillbox</source>
        <translation>正在录制 — Quillbox</translation>
    </message>
    <message>
        <source>Stop &amp; Copy</source>
        <translation>停止并复制</translation>
    </message>
</context>
<context>
    <name>quillbox::TrayIcon</name>
    <message>
        <source>Open Quillbox</source>
        <translation>打开 Quillbox</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Stop &amp;&amp; Copy</source>
        <translation>停止并复制</translation>
    </message>
    <message>
        <source>Record Region</source>
        <translation>录制区域</translation>
    </message>
    <message>
        <source>Quillbox — Recording…</source>
        <translation>Quillbox — 正在录制…</translation>
    </message>
    <message>
        <source>Keep every change</source>
        <translation>保留每一处变化</translation>
    </message>
</context>
<context>
    <name>quillbox::TraylessStop</name>
    <message>
        <source>The screen is being recorded</source>
        <translation>正在录制屏幕</translation>
    </message>
    <message>
        <source>“Stop &amp; Copy” ends the recording.</source>
        <translation>“停止并复制”可结束录制。</translation>
    </message>
    <message>
        <source>Stop &amp; Copy</source>
        <translation>停止并复制</translation>
    </message>
</context>
<context>
    <name>quillbox::UpdateView</name>
    <message>
        <source>Looking for updates…</source>
        <translation>正在检查更新…</translation>
    </message>
    <message>
        <source>The system is asked whether it knows a newer version.</source>
        <translation>正在询问系统是否有更新的版本。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Quillbox is up to date</source>
        <translation>Quillbox 已是最新版本</translation>
    </message>
    <message>
        <source>No newer version has been announced.</source>
        <translation>尚未发布更新的版本。</translation>
    </message>
    <message>
        <source>%1 is the newest version on offer.</source>
        <translation>%1 是可用的最新版本。</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>No newer version is known</source>
        <translation>未发现更新的版本</translation>
    </message>
    <message>
        <source>Version %1 is installed.</source>
        <translation>已安装版本 %1。</translation>
    </message>
    <message>
        <source>A new version of Quillbox is available</source>
        <translation>Quillbox 有新版本可用</translation>
    </message>
    <message>
        <source>Quillbox %1 is available</source>
        <translation>Quillbox %1 可用</translation>
    </message>
    <message>
        <source>The system installs it, and may ask for your password.</source>
        <translation>由系统安装，可能会要求输入您的密码。</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>稍后</translation>
    </message>
    <message>
        <source>Installing the new version…</source>
        <translation>正在安装新版本…</translation>
    </message>
    <message>
        <source>Installing Quillbox %1…</source>
        <translation>正在安装 Quillbox %1…</translation>
    </message>
    <message>
        <source>You can go on working meanwhile.</source>
        <translation>您可以继续工作。</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>隐藏</translation>
    </message>
    <message>
        <source>The new version is installed</source>
        <translation>新版本已安装</translation>
    </message>
    <message>
        <source>Quillbox %1 is installed</source>
        <translation>Quillbox %1 已安装</translation>
    </message>
    <message>
        <source>Restart Quillbox to use it.</source>
        <translation>重新启动 Quillbox 即可使用。</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>进度</translation>
    </message>
    <message>
        <source>Show in Software Center</source>
        <translation>在软件中心显示</translation>
    </message>
    <message>
        <source>Install</source>
        <translation>安装</translation>
    </message>
    <message>
        <source>Restart Quillbox</source>
        <translation>重新启动 Quillbox</translation>
    </message>
    <message>
        <source>It can be restarted once your clip is done.</source>
        <translation>片段完成后即可重新启动。</translation>
    </message>
</context>
<context>
    <name>quillbox::UpdaterController</name>
    <message>
        <source>Couldn&apos;t look for updates</source>
        <translation>无法检查更新</translation>
    </message>
    <message>
        <source>Couldn&apos;t install the update</source>
        <translation>无法安装更新</translation>
    </message>
</context>
</TS>
