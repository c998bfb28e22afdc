<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>BackEnd</name>
    <message>
        <source>%1 is &quot;%2&quot;, which is none of %3</source>
        <translation>%1 の値「%2」は %3 のいずれでもありません</translation>
    </message>
</context>
<context>
    <name>CaptureError</name>
    <message>
        <source>Pixels of the clip can&apos;t be read back: they are damaged</source>
        <translation>クリップのピクセルを読み戻せません: 壊れています</translation>
    </message>
    <message>
        <source>Screen capture is switched off by QUILLBOX_CAPTURE_BACKEND</source>
        <translation>画面の取り込みは QUILLBOX_CAPTURE_BACKEND で無効にされています</translation>
    </message>
    <message>
        <source>A long clip needs a file in %1: %2</source>
        <translation>長いクリップには %1 にファイルが必要です: %2</translation>
    </message>
    <message>
        <source>The disk is nearly full</source>
        <translation>ディスクの空き容量がほとんどありません</translation>
    </message>
    <message>
        <source>The file of a long clip can&apos;t grow: %1</source>
        <translation>長いクリップのファイルを大きくできません: %1</translation>
    </message>
    <message>
        <source>Pixels of the clip can&apos;t be read back: %1</source>
        <translation>クリップのピクセルを読み戻せません: %1</translation>
    </message>
    <message>
        <source>The region lies outside the main display, which is %1×%2</source>
        <translation>範囲がメインディスプレイ (%1×%2) の外にあります</translation>
    </message>
    <message>
        <source>Screen capture needs a free file descriptor</source>
        <translation>画面の取り込みには空きファイル記述子が必要です</translation>
    </message>
    <message>
        <source>Screen capture failed: %1</source>
        <translation>画面の取り込みに失敗しました: %1</translation>
    </message>
    <message>
        <source>Screen capture was stopped before it began</source>
        <translation>画面の取り込みは始まる前に停止されました</translation>
    </message>
    <message>
        <source>The X11 display refuses to show its pixels</source>
        <translation>X11 ディスプレイがピクセルの読み取りを拒否しています</translation>
    </message>
    <message>
        <source>PipeWire, which carries the screen&apos;s pictures, can&apos;t be reached</source>
        <translation>画面の映像を送る PipeWire に接続できません</translation>
    </message>
    <message>
        <source>PipeWire, which carries the screen&apos;s pictures, went away</source>
        <translation>画面の映像を送る PipeWire が終了しました</translation>
    </message>
    <message>
        <source>PipeWire does not deliver the screen&apos;s pictures: %1</source>
        <translation>PipeWire から画面の映像が届きません: %1</translation>
    </message>
    <message>
        <source>unknown error</source>
        <translation>不明なエラー</translation>
    </message>
    <message>
        <source>The desktop no longer delivers the screen&apos;s pictures</source>
        <translation>デスクトップから画面の映像が届かなくなりました</translation>
    </message>
    <message>
        <source>The screen&apos;s pictures come in a format that was not asked for</source>
        <translation>画面の映像が要求していない形式で届きました</translation>
    </message>
    <message>
        <source>PipeWire refuses to deliver the screen&apos;s pictures</source>
        <translation>PipeWire が画面の映像の送信を拒否しています</translation>
    </message>
    <message>
        <source>The desktop delivers no picture of the screen</source>
        <translation>デスクトップから画面の映像が届きません</translation>
    </message>
    <message>
        <source>The region lies outside the display, which is %1×%2</source>
        <translation>範囲がディスプレイ (%1×%2) の外にあります</translation>
    </message>
    <message>
        <source>Screens of Wayland desktops are recorded through the desktop portal, and none answers: install xdg-desktop-portal and its back end for this desktop</source>
        <translation>Wayland の画面はデスクトップポータルを通して録画しますが、応答がありません。xdg-desktop-portal とこのデスクトップ用のバックエンドをインストールしてください</translation>
    </message>
    <message>
        <source>The desktop portal does not offer the screen: install PipeWire and the portal&apos;s back end for this desktop</source>
        <translation>デスクトップポータルが画面を提供していません。PipeWire とこのデスクトップ用のポータルのバックエンドをインストールしてください</translation>
    </message>
    <message>
        <source>The desktop portal, which shows us the screen, went away</source>
        <translation>画面を提供するデスクトップポータルが終了しました</translation>
    </message>
    <message>
        <source>The desktop has ended the recording of its screen</source>
        <translation>デスクトップが画面の録画を終了しました</translation>
    </message>
    <message>
        <source>The desktop portal&apos;s answer can&apos;t be understood</source>
        <translation>デスクトップポータルの応答を解釈できません</translation>
    </message>
    <message>
        <source>The desktop portal refused: %1</source>
        <translation>デスクトップポータルに拒否されました: %1</translation>
    </message>
    <message>
        <source>Screens of Wayland desktops are recorded through the desktop portal, and there is no session bus to reach it</source>
        <translation>Wayland の画面はデスクトップポータルを通して録画しますが、接続に必要なセッションバスがありません</translation>
    </message>
    <message>
        <source>The permission to record the screen was not given</source>
        <translation>画面を録画する許可が得られませんでした</translation>
    </message>
    <message>
        <source>The desktop portal could not start to show us the screen</source>
        <translation>デスクトップポータルが画面の提供を開始できませんでした</translation>
    </message>
    <message>
        <source>What was chosen is not one monitor: record again and choose a single monitor, not all of them</source>
        <translation>選択されたのは 1 台のモニターではありません。もう一度記録し、すべてではなく 1 台のモニターを選んでください</translation>
    </message>
    <message>
        <source>The monitor that is recorded was switched off or unplugged</source>
        <translation>録画中のモニターの電源が切られたか、取り外されました</translation>
    </message>
</context>
<context>
    <name>Clipboard</name>
    <message>
        <source>QUILLBOX_CLIPBOARD_BACKEND is &quot;%1&quot;</source>
        <translation>QUILLBOX_CLIPBOARD_BACKEND の値は「%1」です</translation>
    </message>
    <message>
        <source>There is no display</source>
        <translation>ディスプレイがありません</translation>
    </message>
    <message>
        <source>The desktop is an X11 display</source>
        <translation>デスクトップは X11 ディスプレイです</translation>
    </message>
    <message>
        <source>The toolkit shows its windows on &quot;%1&quot;</source>
        <translation>ツールキットのウィンドウの表示先は「%1」です</translation>
    </message>
    <message>
        <source>The compositor offers %1</source>
        <translation>コンポジターは %1 を提供しています</translation>
    </message>
    <message>
        <source>The compositor lets only a window that has the keyboard set the clipboard</source>
        <translation>コンポジターは、キーボードフォーカスのあるウィンドウにしかクリップボードの設定を許しません</translation>
    </message>
</context>
<context>
    <name>ControlCommand</name>
    <message>
        <source>the answer can&apos;t be written to standard output</source>
        <translation>回答を標準出力に書き込めません</translation>
    </message>
    <message>
        <source>a clip is being made already; quillbox stop ends a recording</source>
        <translation>すでにクリップを作成中です。quillbox stop で録画を終了できます</translation>
    </message>
    <message>
        <source>Quillbox is not running; start it with quillbox</source>
        <translation>Quillbox は起動していません。quillbox で起動してください</translation>
    </message>
</context>
<context>
    <name>CutOffRecordings</name>
    <message>
        <source>Another program has this recording, or it is gone</source>
        <translation>この録画は別のプログラムが使用中か、もうありません</translation>
    </message>
    <message>
        <source>This recording is damaged; nothing can be made of it</source>
        <translation>この録画は壊れており、クリップにできません</translation>
    </message>
</context>
<context>
    <name>DesktopApplication</name>
    <message>
        <source>%1. quillbox record and encode work from a terminal</source>
        <translation>%1。quillbox record と encode は端末から使えます</translation>
    </message>
    <message>
        <source>QT_QPA_PLATFORM is &quot;%1&quot;, which is none of %2; unset it</source>
        <translation>QT_QPA_PLATFORM が「%1」ですが、%2 のいずれでもありません。設定を解除してください</translation>
    </message>
</context>
<context>
    <name>DisplayError</name>
    <message>
        <source>DISPLAY is not set, so there is no X11 display to record</source>
        <translation>DISPLAY が設定されていないため、録画できる X11 ディスプレイがありません</translation>
    </message>
    <message>
        <source>The X11 display %1 can&apos;t be connected to</source>
        <translation>X11 ディスプレイ %1 に接続できません</translation>
    </message>
    <message>
        <source>The screen&apos;s colours can&apos;t be read (depth %1); only true-colour screens can be recorded</source>
        <translation>画面の色を読み取れません (色深度 %1)。録画できるのはトゥルーカラーの画面だけです</translation>
    </message>
    <message>
        <source>The connection to the X11 display was lost</source>
        <translation>X11 ディスプレイへの接続が失われました</translation>
    </message>
</context>
<context>
    <name>Doctor</name>
    <message>
        <source>no display</source>
        <translation>ディスプレイなし</translation>
    </message>
    <message>
        <source>the report can&apos;t be written to standard output</source>
        <translation>レポートを標準出力に書き込めません</translation>
    </message>
    <message>
        <source>What this desktop has for Quillbox</source>
        <translation>このデスクトップで Quillbox が使えるもの</translation>
    </message>
    <message>
        <source>What is missing comes, on Debian and Ubuntu, with</source>
        <translation>足りないものは、Debian と Ubuntu では次のコマンドで入ります</translation>
    </message>
    <message>
        <source>The screen can be recorded.</source>
        <translation>画面を録画できます。</translation>
    </message>
    <message>
        <source>The screen can&apos;t be recorded.</source>
        <translation>画面を録画できません。</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>トレイ</translation>
    </message>
    <message>
        <source>a StatusNotifierItem watcher with a host</source>
        <translation>ホストのある StatusNotifierItem ウォッチャー</translation>
    </message>
    <message>
        <source>a StatusNotifierItem watcher without a host</source>
        <translation>ホストのない StatusNotifierItem ウォッチャー</translation>
    </message>
    <message>
        <source>a tray of the X server&apos;s kind (XEmbed)</source>
        <translation>X サーバー方式のトレイ (XEmbed)</translation>
    </message>
    <message>
        <source>a StatusNotifierItem</source>
        <translation>StatusNotifierItem</translation>
    </message>
    <message>
        <source>This desktop shows no tray icons</source>
        <translation>このデスクトップはトレイアイコンを表示しません</translation>
    </message>
    <message>
        <source>quillbox show opens the panel</source>
        <translation>quillbox show でパネルが開きます</translation>
    </message>
    <message>
        <source>bind quillbox toggle to a key in the desktop&apos;s settings</source>
        <translation>デスクトップの設定で quillbox toggle をキーに割り当ててください</translation>
    </message>
    <message>
        <source>Hotkey</source>
        <translation>ホットキー</translation>
    </message>
    <message>
        <source>no other program holds it</source>
        <translation>他のプログラムは使用していません</translation>
    </message>
    <message>
        <source>it is held, as Quillbox runs</source>
        <translation>Quillbox が起動中のため使用されています</translation>
    </message>
    <message>
        <source>There is no X server that has the keys</source>
        <translation>このキーを持つ X サーバーがありません</translation>
    </message>
    <message>
        <source>the portal&apos;s GlobalShortcuts, version %1</source>
        <translation>ポータルの GlobalShortcuts、バージョン %1</translation>
    </message>
    <message>
        <source>There is no session bus</source>
        <translation>セッションバスがありません</translation>
    </message>
    <message>
        <source>There is no desktop portal</source>
        <translation>デスクトップポータルがありません</translation>
    </message>
    <message>
        <source>The portal has no global shortcuts on this desktop</source>
        <translation>このデスクトップのポータルにはグローバルショートカットがありません</translation>
    </message>
    <message>
        <source>The desktop portal does not answer</source>
        <translation>デスクトップポータルが応答しません</translation>
    </message>
    <message>
        <source>You refused it when the desktop asked</source>
        <translation>デスクトップの確認に対して拒否しました</translation>
    </message>
    <message>
        <source>to be asked again, remove %1 and start Quillbox anew; or bind quillbox toggle to a key in the desktop&apos;s settings</source>
        <translation>もう一度確認を受けるには %1 を削除して Quillbox を起動し直してください。またはデスクトップの設定で quillbox toggle をキーに割り当ててください</translation>
    </message>
    <message>
        <source>The hotkey is switched off by QUILLBOX_HOTKEY_BACKEND</source>
        <translation>ホットキーは QUILLBOX_HOTKEY_BACKEND で無効にされています</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>アップデート</translation>
    </message>
    <message>
        <source>There is no system bus</source>
        <translation>システムバスがありません</translation>
    </message>
    <message>
        <source>There is no PackageKit</source>
        <translation>PackageKit がありません</translation>
    </message>
    <message>
        <source>update Quillbox the way it was installed</source>
        <translation>Quillbox はインストールしたときと同じ方法で更新してください</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>画面</translation>
    </message>
    <message>
        <source>the X server %1</source>
        <translation>X サーバー %1</translation>
    </message>
    <message>
        <source>extensions %1</source>
        <translation>拡張機能 %1</translation>
    </message>
    <message>
        <source>the server lacks %1: recording is slower, has no pointer, or knows no monitors</source>
        <translation>サーバーに %1 がありません。録画が遅くなる、ポインターが映らない、またはモニターを区別できないことがあります</translation>
    </message>
    <message>
        <source>start it inside a desktop session; quillbox encode needs none</source>
        <translation>デスクトップセッション内で起動してください。quillbox encode には不要です</translation>
    </message>
    <message>
        <source>monitors</source>
        <translation>モニター</translation>
    </message>
    <message>
        <source>windows</source>
        <translation>ウィンドウ</translation>
    </message>
    <message>
        <source>virtual monitors</source>
        <translation>仮想モニター</translation>
    </message>
    <message>
        <source>the portal&apos;s ScreenCast, version %1: %2</source>
        <translation>ポータルの ScreenCast、バージョン %1: %2</translation>
    </message>
    <message>
        <source>a desktop portal</source>
        <translation>デスクトップポータル</translation>
    </message>
    <message>
        <source>the desktop portal and PipeWire</source>
        <translation>デスクトップポータルと PipeWire</translation>
    </message>
    <message>
        <source>the desktop will ask which monitor to show</source>
        <translation>どのモニターを使うかデスクトップが尋ねます</translation>
    </message>
    <message>
        <source>the desktop may remember which monitor to show</source>
        <translation>どのモニターを使うかデスクトップが覚えている場合があります</translation>
    </message>
    <message>
        <source>systemctl --user restart xdg-desktop-portal may help</source>
        <translation>systemctl --user restart xdg-desktop-portal で直ることがあります</translation>
    </message>
    <message>
        <source>The desktop portal shows the screen through PipeWire, which does not run</source>
        <translation>デスクトップポータルは PipeWire を通して画面を提供しますが、PipeWire が起動していません</translation>
    </message>
    <message>
        <source>log in again when it is installed: the portal looks for its pieces only once</source>
        <translation>インストール後にログインし直してください。ポータルが構成要素を探すのは一度だけです</translation>
    </message>
    <message>
        <source>The X server does not answer</source>
        <translation>X サーバーが応答しません</translation>
    </message>
    <message>
        <source>a clipboard manager, which keeps clips when Quillbox ends</source>
        <translation>クリップボードマネージャー (Quillbox の終了後もクリップが残ります)</translation>
    </message>
    <message>
        <source>no clipboard manager: a clip stays while Quillbox runs</source>
        <translation>クリップボードマネージャーなし: クリップは Quillbox の起動中だけ残ります</translation>
    </message>
    <message>
        <source>the X server&apos;s selection</source>
        <translation>X サーバーのセレクション</translation>
    </message>
    <message>
        <source>There is no display</source>
        <translation>ディスプレイがありません</translation>
    </message>
    <message>
        <source>the compositor&apos;s data control</source>
        <translation>コンポジターの data control</translation>
    </message>
    <message>
        <source>the toolkit</source>
        <translation>ツールキット</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>クリップボード</translation>
    </message>
    <message>
        <source>The display does not answer</source>
        <translation>ディスプレイが応答しません</translation>
    </message>
    <message>
        <source>File manager</source>
        <translation>ファイル管理</translation>
    </message>
    <message>
        <source>a file manager on the bus (FileManager1)</source>
        <translation>バス上のファイルマネージャー (FileManager1)</translation>
    </message>
    <message>
        <source>the portal&apos;s OpenURI, version %1</source>
        <translation>ポータルの OpenURI、バージョン %1</translation>
    </message>
    <message>
        <source>the file manager, which selects the clip</source>
        <translation>ファイルマネージャー (クリップを選択します)</translation>
    </message>
    <message>
        <source>the desktop portal, which opens the folder</source>
        <translation>デスクトップポータル (フォルダーを開きます)</translation>
    </message>
    <message>
        <source>xdg-open, which opens the folder</source>
        <translation>xdg-open (フォルダーを開きます)</translation>
    </message>
    <message>
        <source>Nothing here opens folders</source>
        <translation>フォルダーを開けるものがありません</translation>
    </message>
    <message>
        <source>Quillbox was not installed as a package</source>
        <translation>Quillbox はパッケージとしてインストールされていません</translation>
    </message>
    <message>
        <source>Updates are switched off by QUILLBOX_UPDATE_BACKEND</source>
        <translation>QUILLBOX_UPDATE_BACKEND により更新は無効になっています</translation>
    </message>
    <message>
        <source>to choose another monitor, remove %1</source>
        <translation>別の画面を選ぶには %1 を削除してください</translation>
    </message>
    <message>
        <source>the desktop portal; the desktop&apos;s settings tell the keys</source>
        <translation>デスクトップポータル(キーはデスクトップの設定で確認できます)</translation>
    </message>
    <message>
        <source>the desktop portal: %1</source>
        <translation>デスクトップポータル: %1</translation>
    </message>
    <message>
        <source>start Quillbox and look again: only then the desktop tells what it has bound</source>
        <translation>Quillbox を起動してからもう一度確認してください。割り当てられたキーはそのときにわかります</translation>
    </message>
    <message>
        <source>The desktop has bound no key for Quillbox</source>
        <translation>デスクトップは Quillbox にキーを割り当てていません</translation>
    </message>
    <message>
        <source>PipeWire, which brings the screen&apos;s pictures, does not answer</source>
        <translation>画面の画像を届ける PipeWire が応答しません</translation>
    </message>
    <message>
        <source>systemctl --user restart pipewire wireplumber may help</source>
        <translation>systemctl --user restart pipewire wireplumber で直ることがあります</translation>
    </message>
    <message>
        <source>PipeWire has no session manager, which connects its programs</source>
        <translation>PipeWire のプログラムをつなぐセッションマネージャーがありません</translation>
    </message>
    <message>
        <source>systemctl --user start wireplumber starts one that is installed</source>
        <translation>インストール済みなら systemctl --user start wireplumber で起動できます</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>%1, but not %2</source>
        <translation>%1 (%2 は除く)</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>録画</translation>
    </message>
    <message numerus="yes">
        <source>%n recording(s) cut off before there was a clip</source>
        <translation>
            <numerusform>クリップになる前に途切れた録画 %n 件</numerusform>
        </translation>
    </message>
    <message>
        <source>quillbox recover makes clips of them, quillbox recover --discard removes them</source>
        <translation>quillbox recover でクリップにし、quillbox recover --discard で削除します</translation>
    </message>
    <message>
        <source>%1 of the X server</source>
        <translation>X サーバーの %1</translation>
    </message>
    <message>
        <source>Another program holds %1</source>
        <translation>別のプログラムが %1 を使用しています</translation>
    </message>
    <message>
        <source>the desktop portal, once it has been asked for %1</source>
        <translation>デスクトップポータル(%1 を要求した後)</translation>
    </message>
</context>
<context>
    <name>ErrorReport</name>
    <message>
        <source>there is not enough memory for these frames; use fewer or smaller ones</source>
        <translation>これらのフレームを扱うにはメモリが足りません。枚数を減らすか小さくしてください</translation>
    </message>
    <message>
        <source>%1 is saved, but not what there is to say about it: %2</source>
        <translation>%1 は保存されましたが、その説明は書き出せません: %2</translation>
    </message>
    <message>
        <source>warning: %1</source>
        <translation>警告: %1</translation>
    </message>
    <message>
        <source>this process may not open enough files; raise the limit with ulimit -n 64</source>
        <translation>このプロセスは十分な数のファイルを開けません。ulimit -n 64 で上限を上げてください</translation>
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
        <translation>2 MB 未満の小さな GIF</translation>
    </message>
    <message>
        <source>GitHub</source>
        <translation>GitHub</translation>
    </message>
    <message>
        <source>GIF under 10 MB</source>
        <translation>10 MB 未満の GIF</translation>
    </message>
    <message>
        <source>Docs</source>
        <translation>文書</translation>
    </message>
    <message>
        <source>Crisp, balanced quality</source>
        <translation>鮮明でバランスのよい品質</translation>
    </message>
</context>
<context>
    <name>FrameReadError</name>
    <message>
        <source>can&apos;t be opened: %1</source>
        <translation>開けません: %1</translation>
    </message>
    <message>
        <source>can&apos;t be read: %1</source>
        <translation>読み込めません: %1</translation>
    </message>
    <message>
        <source>holds no frame; at least one is needed</source>
        <translation>フレームがありません。少なくとも 1 枚必要です</translation>
    </message>
    <message>
        <source>frame %1 ends after %2 of %3 bytes; %4</source>
        <translation>フレーム %1 は %3 バイト中 %2 バイトで終わっています。%4</translation>
    </message>
    <message>
        <source>frame %1 is %2; each side must be 1 to 65535 pixels</source>
        <translation>フレーム %1 は %2 です。各辺は 1～65535 ピクセルでなければなりません</translation>
    </message>
    <message>
        <source>frame %1 is %2, more than this machine&apos;s memory holds; use smaller frames</source>
        <translation>フレーム %1 は %2 で、このマシンのメモリに収まりません。小さいフレームを使ってください</translation>
    </message>
    <message>
        <source>header has &quot;%1&quot;; expected %2</source>
        <translation>ヘッダーに「%1」があります。必要なもの: %2</translation>
    </message>
    <message>
        <source>frame %1 has &quot;%2&quot;; expected %3</source>
        <translation>フレーム %1 に「%2」があります。必要なもの: %3</translation>
    </message>
    <message>
        <source>is not an image that can be read; expected PNG, JPEG, GIF or the like, a YUV4MPEG2 stream, or --raw WxH for raw RGBA frames</source>
        <translation>読み込める画像ではありません。PNG、JPEG、GIF など、YUV4MPEG2 ストリーム、または生の RGBA フレーム用の --raw WxH が必要です</translation>
    </message>
    <message>
        <source>frame %1 can&apos;t be decoded: %2</source>
        <translation>フレーム %1 をデコードできません: %2</translation>
    </message>
    <message>
        <source>plays for %1 s, more than %2 s; use --source-fps to take its frames one each</source>
        <translation>再生時間が %1 秒で、%2 秒を超えています。--source-fps を使うとフレームを 1 枚ずつ取り込みます</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>is --raw %1 its true size?</source>
        <translation>--raw %1 は正しい大きさですか?</translation>
    </message>
    <message>
        <source>a rate like F30:1 or F30000:1001</source>
        <translation>F30:1 や F30000:1001 のようなフレームレート</translation>
    </message>
    <message>
        <source>a YUV4MPEG2 stream (or --raw WxH for raw RGBA frames)</source>
        <translation>YUV4MPEG2 ストリーム (生の RGBA フレームなら --raw WxH)</translation>
    </message>
    <message>
        <source>a whole number of pixels</source>
        <translation>整数のピクセル数</translation>
    </message>
    <message>
        <source>the frame size in its tags W and H</source>
        <translation>タグ W と H のフレームサイズ</translation>
    </message>
    <message>
        <source>XCOLORRANGE=FULL or XCOLORRANGE=LIMITED</source>
        <translation>XCOLORRANGE=FULL または XCOLORRANGE=LIMITED</translation>
    </message>
    <message>
        <source>FRAME and its picture; the stream is cut off</source>
        <translation>FRAME とその画像。ストリームが途中で切れています</translation>
    </message>
    <message>
        <source>FRAME; the frame before it has another size</source>
        <translation>FRAME。前のフレームの大きさが異なります</translation>
    </message>
    <message>
        <source>write the stream again</source>
        <translation>ストリームを書き直してください</translation>
    </message>
    <message>
        <source>became shorter while it was being read; run the command again</source>
        <translation>読み込み中に短くなりました。コマンドをもう一度実行してください</translation>
    </message>
    <message>
        <source>is a %1 image, for which a plugin is missing; install qt6-image-formats-plugins (Fedora: qt6-qtimageformats, Arch: qt6-imageformats)</source>
        <translation>%1 画像ですが、必要なプラグインがありません。qt6-image-formats-plugins をインストールしてください (Fedora: qt6-qtimageformats、Arch: qt6-imageformats)</translation>
    </message>
    <message>
        <source>is a video; have FFmpeg take its pictures: ffmpeg -i VIDEO -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o OUT.gif -</source>
        <translation>動画です。FFmpeg に画像を取り出させてください: ffmpeg -i VIDEO -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o OUT.gif -</translation>
    </message>
    <message>
        <source>is cut off: not even its first frame is whole; get the file again</source>
        <translation>途中で切れています。最初のフレームさえ完全ではありません。ファイルを入手し直してください</translation>
    </message>
    <message numerus="yes">
        <source>is cut off after %n whole frame(s); get the file again, or --keep-going</source>
        <translation>
            <numerusform>完全なフレーム %n 個の後で切れています。ファイルを入手し直すか、--keep-going を付けてください</numerusform>
        </translation>
    </message>
    <message>
        <source>frame %1 is %2, but the first is %3; without --strict it is fitted into that</source>
        <translation>フレーム %1 は %2 ですが、最初は %3 です。--strict を付けなければ、それに合わせます</translation>
    </message>
    <message>
        <source>frames are %1, so --crop names a part that they don&apos;t have</source>
        <translation>フレームは %1 なので、--crop の示す部分がありません</translation>
    </message>
    <message>
        <source>no image is there; name a folder with images, or a pattern that some fit</source>
        <translation>画像がありません。画像のあるフォルダー、または画像に合うパターンを指定してください</translation>
    </message>
    <message>
        <source>C420, C422, C444, C411 or Cmono of 8 to 16 bits (with FFmpeg: -pix_fmt yuv444p)</source>
        <translation>8～16 ビットの C420、C422、C444、C411、Cmono のいずれか (FFmpeg では -pix_fmt yuv444p)</translation>
    </message>
    <message>
        <source>at least one frame in ten minutes</source>
        <translation>10 分間に少なくとも 1 フレーム</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>Examples:
  quillbox record --region 0,0,800x600 --duration 3
  quillbox record --select --copy --duration 3
  quillbox record --region 100,50,640x480 -o demo.gif     (Ctrl-C stops and saves)</source>
        <translation>例:
  quillbox record --region 0,0,800x600 --duration 3
  quillbox record --select --copy --duration 3
  quillbox record --region 100,50,640x480 -o demo.gif     (Ctrl-C で停止して保存)</translation>
    </message>
    <message>
        <source>Where the GIF is meant for: its limits on size, width and colours</source>
        <translation>GIF の用途: サイズ、幅、色数の上限</translation>
    </message>
    <message>
        <source>The GIF to write, - for standard output (default: %1)</source>
        <translation>書き出す GIF。- は標準出力 (既定値: %1)</translation>
    </message>
    <message>
        <source>Describe the result as a JSON object</source>
        <translation>結果を JSON オブジェクトで示す</translation>
    </message>
    <message>
        <source>Replace OUT if it exists</source>
        <translation>OUT がすでにあれば置き換える</translation>
    </message>
    <message>
        <source>Let the user drag out a region and record it</source>
        <translation>範囲をドラッグさせて録画する</translation>
    </message>
    <message>
        <source>Stop recording, save and copy the clip, and print where it is</source>
        <translation>録画を停止し、クリップを保存・コピーして場所を表示する</translation>
    </message>
    <message>
        <source>Stop a recording, or begin one</source>
        <translation>録画を停止する、または開始する</translation>
    </message>
    <message>
        <source>Open the panel</source>
        <translation>パネルを開く</translation>
    </message>
    <message>
        <source>Print what the application is doing</source>
        <translation>アプリケーションの状態を表示する</translation>
    </message>
    <message>
        <source>End the application</source>
        <translation>アプリケーションを終了する</translation>
    </message>
    <message>
        <source>Example:
  quillbox %1</source>
        <translation>例:
  quillbox %1</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>使い方</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>オプション</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>コマンド</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>引数</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>オプション</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>必須</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>コマンド</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>このヘルプを表示して終了する</translation>
    </message>
    <message>
        <source>%1 (of the running application)</source>
        <translation>%1 (実行中のアプリケーション)</translation>
    </message>
    <message>
        <source>Answer with a JSON object</source>
        <translation>JSON オブジェクトで答える</translation>
    </message>
    <message>
        <source>Print the version</source>
        <translation>バージョンを表示する</translation>
    </message>
    <message>
        <source>Turn images, YUV4MPEG2 or raw frames into a GIF</source>
        <translation>画像、YUV4MPEG2、生フレームを GIF にする</translation>
    </message>
    <message>
        <source>beside the first INPUT, with the extension gif</source>
        <translation>最初の INPUT と同じ場所、拡張子 gif</translation>
    </message>
    <message>
        <source>Record a region of the screen as a GIF</source>
        <translation>画面の一部を GIF として録画する</translation>
    </message>
    <message>
        <source>Left, top and size of the region, points of the main display</source>
        <translation>範囲の左、上、大きさ (メインディスプレイのポイント単位)</translation>
    </message>
    <message>
        <source>Drag the region out on the screen</source>
        <translation>画面上で範囲をドラッグする</translation>
    </message>
    <message>
        <source>Stop after so many seconds (default: Ctrl-C stops)</source>
        <translation>この秒数で停止する (既定値: Ctrl-C で停止)</translation>
    </message>
    <message>
        <source>a dated file in the folder Quillbox of your videos</source>
        <translation>ビデオフォルダー内の Quillbox フォルダーに日付付きのファイル</translation>
    </message>
    <message>
        <source>Put the clip on the clipboard, too</source>
        <translation>クリップをクリップボードにも入れる</translation>
    </message>
    <message>
        <source>List the clips made lately, newest first</source>
        <translation>最近のクリップを新しい順に一覧する</translation>
    </message>
    <message>
        <source>Print them as a JSON array</source>
        <translation>JSON 配列で表示する</translation>
    </message>
    <message>
        <source>Tell what this desktop has to record, copy and so on, and what is missing</source>
        <translation>録画やコピーなどのためにこのデスクトップにあるものと足りないものを表示する</translation>
    </message>
    <message>
        <source>Print it as a JSON object</source>
        <translation>JSON オブジェクトで表示する</translation>
    </message>
    <message>
        <source>The exit status is 0 where the screen can be recorded, else 1.</source>
        <translation>終了ステータスは、画面を録画できる場合は 0、できない場合は 1 です。</translation>
    </message>
    <message>
        <source>Show every change, as exactly as the preset&apos;s size and width allow</source>
        <translation>プリセットのサイズと幅が許すかぎり正確に、すべての変化を表示する</translation>
    </message>
    <message>
        <source>With --precise: the size instead of the preset&apos;s</source>
        <translation>--precise とともに: プリセットの代わりのサイズ</translation>
    </message>
    <message>
        <source>With --precise: the width instead of the preset&apos;s</source>
        <translation>--precise とともに: プリセットの代わりの幅</translation>
    </message>
    <message>
        <source>With --precise: the most pictures a second (default: 30)</source>
        <translation>--precise とともに: 1 秒あたりの最大の画像数 (既定: 30)</translation>
    </message>
    <message>
        <source>With --precise: the most colours of a picture (default: 256)</source>
        <translation>--precise とともに: 1 枚の画像の最大の色数 (既定: 256)</translation>
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
        <translation>画面の一部やクリップを小さなアニメーション GIF にします。
コマンドなし: トレイのアプリケーション。すべてマウスで操作できます。

例:
  quillbox                      (アプリケーションを起動、または表示)
  quillbox toggle               (キー割り当て用: 録画、次に停止してコピー)
スクリプトから範囲を録画:
  quillbox record --region 100,100,640x480 --duration 3 --force -o demo.gif
他のプログラムのフレームをエンコード:
  ffmpeg -v error -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - \
    | quillbox encode --matrix bt709 -o clip.gif -
継続的インテグレーションで、ディスプレイなしでプログラムを録画:
  xvfb-run -s &quot;-screen 0 1280x720x24&quot; \
    sh -c &quot;my-program &amp; quillbox record --region 0,0,1280x720 --duration 3 -o program.gif&quot;

以下のコマンドには他の例もあります: quillbox encode --help</translation>
    </message>
    <message>
        <source>Examples:
  quillbox encode -o steps.gif step1.png step2.png step3.png --source-fps 1
  quillbox encode -o steps.gif step%02d.png --delay 1.5
  ffmpeg -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o clip.gif -
  quillbox encode --raw 1280x720 --preset github capture.rgba</source>
        <translation>例:
  quillbox encode -o steps.gif step1.png step2.png step3.png --source-fps 1
  quillbox encode -o steps.gif step%02d.png --delay 1.5
  ffmpeg -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o clip.gif -
  quillbox encode --raw 1280x720 --preset github capture.rgba</translation>
    </message>
    <message>
        <source>Print neither progress nor the result, unless as JSON</source>
        <translation>進行状況も結果も表示しない (JSON を除く)</translation>
    </message>
    <message>
        <source>Shrink wider frames to so many pixels; with --precise, instead of the preset&apos;s width</source>
        <translation>これより広いフレームをこのピクセル数に縮小する。--precise ではプリセットの幅の代わり</translation>
    </message>
    <message>
        <source>the text can&apos;t be written to standard output</source>
        <translation>テキストを標準出力に書き込めません</translation>
    </message>
    <message>
        <source>Images, one frame each, a folder of them, or a pattern like f%03d.png; or one animated image; or one YUV4MPEG2 stream; - for standard input</source>
        <translation>画像 (1 枚が 1 フレーム)、そのフォルダー、または f%03d.png のようなパターン。あるいはアニメーション画像 1 つ、YUV4MPEG2 ストリーム 1 つ。- は標準入力</translation>
    </message>
    <message>
        <source>Frames per second of the input, like 12, 0.5 or 30000/1001 (default: its own; else 1 for several images, 30 for raw frames)</source>
        <translation>入力の 1 秒あたりのフレーム数。例: 12、0.5、30000/1001 (既定: 入力自身の値。なければ複数の画像は 1、生フレームは 30)</translation>
    </message>
    <message>
        <source>Show each frame of the input for so many seconds; the other way to say --source-fps</source>
        <translation>入力の各フレームをこの秒数だけ表示する。--source-fps の別の書き方</translation>
    </message>
    <message>
        <source>INPUT is raw frames of this size, without padding</source>
        <translation>INPUT はこの大きさの生フレーム (パディングなし)</translation>
    </message>
    <message>
        <source>Take this part of each frame: left, top and size</source>
        <translation>各フレームのこの部分だけを使う: 左、上、大きさ</translation>
    </message>
    <message>
        <source>Play the GIF so many times (default: 0, for ever)</source>
        <translation>GIF をこの回数再生する (既定: 0、無限)</translation>
    </message>
    <message>
        <source>Encode with so many threads (default: one a core)</source>
        <translation>この数のスレッドでエンコードする (既定: コアごとに 1 つ)</translation>
    </message>
    <message>
        <source>By which standard the YUV4MPEG2 stream has its colours (default: bt709 from 720 rows on, else bt601)</source>
        <translation>YUV4MPEG2 ストリームの色の規格 (既定: 720 行以上は bt709、それ以外は bt601)</translation>
    </message>
    <message>
        <source>Refuse images of another size than the first instead of fitting them into it</source>
        <translation>最初と大きさの違う画像を、合わせずに拒否する</translation>
    </message>
    <message>
        <source>Leave out images and frames that are damaged or cut off, and say how many</source>
        <translation>壊れた画像や途中で切れたフレームを除き、その数を知らせる</translation>
    </message>
    <message>
        <source>Print the help of a command</source>
        <translation>コマンドのヘルプを表示する</translation>
    </message>
    <message>
        <source>The command; none for all of them</source>
        <translation>コマンド。なければすべて</translation>
    </message>
    <message>
        <source>Make clips of recordings that the program&apos;s end cut off</source>
        <translation>プログラムの終了で途切れた録画からクリップを作る</translation>
    </message>
    <message>
        <source>Only list them: when each began, and how long it is</source>
        <translation>一覧だけを表示: それぞれの開始時刻と長さ</translation>
    </message>
    <message>
        <source>Remove them instead</source>
        <translation>代わりに削除する</translation>
    </message>
    <message>
        <source>Make another clip of what was recorded last, save and copy it</source>
        <translation>最後の録画から別のクリップを作り、保存してコピーする</translation>
    </message>
    <message>
        <source>Keep every change in this clip</source>
        <translation>このクリップではすべての変化を残す</translation>
    </message>
    <message>
        <source>Where the GIF is meant for (default: as for the clip before)</source>
        <translation>GIF の用途（既定: 前のクリップと同じ）</translation>
    </message>
    <message>
        <source>Mix colours that the palette lacks; not with --precise</source>
        <translation>パレットにない色を混ぜて表す。--precise では使えません</translation>
    </message>
    <message>
        <source>With --raw: the bytes of a pixel</source>
        <translation>--raw のとき: 1 ピクセルのバイトの並び</translation>
    </message>
    <message>
        <source>What shows through transparent pixels (default: white; raw frames are opaque unless this is given)</source>
        <translation>透明なピクセルの背景の色（既定は白。指定しなければ生のフレームは不透明）</translation>
    </message>
</context>
<context>
    <name>HistoryCommand</name>
    <message>
        <source>the list can&apos;t be written to standard output</source>
        <translation>一覧を標準出力に書き込めません</translation>
    </message>
</context>
<context>
    <name>HotkeyNotice</name>
    <message>
        <source>This desktop has given Quillbox no hotkey. Bind “quillbox toggle” to a key in its settings.</source>
        <translation>このデスクトップは Quillbox にホットキーを割り当てていません。設定で「quillbox toggle」をキーに割り当ててください。</translation>
    </message>
    <message>
        <source>This desktop has no global hotkeys. Bind “quillbox toggle” to a key in its settings.</source>
        <translation>このデスクトップにはグローバルホットキーがありません。設定で「quillbox toggle」をキーに割り当ててください。</translation>
    </message>
    <message>
        <source>No hotkey, as you decided. “quillbox toggle” can be bound to a key; “quillbox doctor” tells how to be asked again.</source>
        <translation>選択に従い、ホットキーはありません。「quillbox toggle」をキーに割り当てられます。もう一度確認を受ける方法は「quillbox doctor」で分かります。</translation>
    </message>
    <message>
        <source>The desktop may ask whether Quillbox may have this hotkey.</source>
        <translation>このホットキーを Quillbox に許可するか、デスクトップが尋ねることがあります。</translation>
    </message>
    <message>
        <source>The desktop&apos;s settings tell the keys, and can change them.</source>
        <translation>キーはデスクトップの設定で確認、変更できます。</translation>
    </message>
    <message>
        <source>The desktop has set the keys to: %1. Its settings can change them.</source>
        <translation>デスクトップが設定したキー: %1。デスクトップの設定で変更できます。</translation>
    </message>
    <message>
        <source>Super + Shift + %1</source>
        <translation>Super + Shift + %1</translation>
    </message>
    <message>
        <source>Another program uses %1. Quillbox gets it as soon as it is free; “quillbox toggle” can be bound to any other key.</source>
        <translation>%1 は別のプログラムが使用しています。空き次第 Quillbox で使えるようになります。「quillbox toggle」は他のキーに割り当てられます。</translation>
    </message>
    <message>
        <source>⌘ is the Super key: press %1 in any program.</source>
        <translation>⌘ は Super キーです。どのプログラムでも %1 を押してください。</translation>
    </message>
    <message>
        <source>Press “Record Region”, not ⌘⇧2.</source>
        <translation>⌘⇧2 ではなく「範囲を録画」を押してください。</translation>
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
            <numerusform>%1。その前の %n フレームはクリップに入っています</numerusform>
        </translation>
    </message>
    <message>
        <source>images left out: %1 of %2; %3</source>
        <translation>除かれた画像: %2 枚中 %1 枚。%3</translation>
    </message>
</context>
<context>
    <name>OutputFileError</name>
    <message>
        <source>the file exists already; use --force to replace it</source>
        <translation>ファイルがすでに存在します。置き換えるには --force を使ってください</translation>
    </message>
    <message>
        <source>there is no folder %1; create it first</source>
        <translation>フォルダー %1 がありません。先に作成してください</translation>
    </message>
    <message>
        <source>it is a folder; name a file</source>
        <translation>フォルダーです。ファイルを指定してください</translation>
    </message>
    <message>
        <source>it is an input itself; name another file with -o</source>
        <translation>それ自体が入力です。-o で別のファイルを指定してください</translation>
    </message>
    <message>
        <source>no space left; free some or save elsewhere</source>
        <translation>空き容量がありません。容量を空けるか別の場所に保存してください</translation>
    </message>
    <message>
        <source>%1: can&apos;t be saved: %2</source>
        <translation>%1: 保存できません: %2</translation>
    </message>
    <message>
        <source>it is larger than a file may be here (ulimit -f)</source>
        <translation>ここで許されるファイルの大きさを超えています (ulimit -f)</translation>
    </message>
</context>
<context>
    <name>ParserMessages</name>
    <message>
        <source>%1 is required</source>
        <translation>%1 が必要です</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>予期しない引数です: %1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>予期しない引数です: %1</translation>
    </message>
    <message>
        <source>%1: 1 required %2 missing</source>
        <translation>%1: 値 %2 がありません</translation>
    </message>
</context>
<context>
    <name>ProgressLine</name>
    <message>
        <source>reading</source>
        <translation>読み込み中</translation>
    </message>
    <message>
        <source>saving</source>
        <translation>保存中</translation>
    </message>
    <message numerus="yes">
        <source>attempt %1: %n colour(s), %2 %</source>
        <translation>
            <numerusform>%1 回目: %n 色、%2 %</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>recording %1 s, %n frame(s); Ctrl-C stops</source>
        <translation>
            <numerusform>録画中: %1 秒、%n フレーム。Ctrl-C で停止</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>palette %1 of %2: %n colour(s), %3 %</source>
        <translation>
            <numerusform>パレット %1/%2: %n 色、%3 %</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; Ctrl-C again ends this without a clip</source>
        <translation>%1。もう一度 Ctrl-C を押すとクリップなしで終了します</translation>
    </message>
</context>
<context>
    <name>QuillboxApp</name>
    <message>
        <source>A new version of Quillbox is available</source>
        <translation>Quillbox の新しいバージョンがあります</translation>
    </message>
    <message>
        <source>Quillbox %1 is available</source>
        <translation>Quillbox %1 が利用できます</translation>
    </message>
    <message>
        <source>“Check for Updates…” in the panel installs it.</source>
        <translation>パネルの「アップデートを確認…」でインストールできます。</translation>
    </message>
    <message>
        <source>The recording goes on</source>
        <translation>録画は続いています</translation>
    </message>
    <message>
        <source>It could not be prepared for the clip meanwhile. Making the clip will take longer.</source>
        <translation>録画中にクリップの準備ができませんでした。クリップの作成に時間がかかります。</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>Quillbox was running twice</source>
        <translation>Quillbox が二重に起動していました</translation>
    </message>
    <message>
        <source>The desktop&apos;s session bus had been restarted. The one that was started first has ended; its clips are saved.</source>
        <translation>デスクトップのセッションバスが再起動されていました。先に起動した方は終了しました。そのクリップは保存されています。</translation>
    </message>
</context>
<context>
    <name>RecordCommand</name>
    <message>
        <source>There is no display to record. Set DISPLAY to an X11 display, such as :0</source>
        <translation>録画できるディスプレイがありません。DISPLAY に :0 のような X11 ディスプレイを設定してください</translation>
    </message>
    <message>
        <source>Couldn&apos;t start recording: %1.</source>
        <translation>録画を開始できませんでした: %1。</translation>
    </message>
    <message>
        <source>The recording ended early: %1. What was recorded is kept.</source>
        <translation>録画が途中で終了しました: %1。録画済みの部分は残ります。</translation>
    </message>
    <message>
        <source>the clip stays on the clipboard until something else is copied; Ctrl-C ends this program</source>
        <translation>別のものがコピーされるまでクリップはクリップボードに残ります。Ctrl-C でこのプログラムを終了します</translation>
    </message>
    <message>
        <source>nothing was selected, so nothing was recorded</source>
        <translation>何も選択されなかったため、何も録画していません</translation>
    </message>
    <message>
        <source>%1. The desktop application does it: start quillbox first.</source>
        <translation>%1。デスクトップアプリケーションならできます。先に quillbox を起動してください。</translation>
    </message>
    <message>
        <source>%1.</source>
        <translation>%1。</translation>
    </message>
    <message>
        <source>the clip gets onto the clipboard when the panel is opened: quillbox show</source>
        <translation>パネルを開くとクリップがクリップボードに入ります: quillbox show</translation>
    </message>
    <message>
        <source>the clip is saved, but it couldn&apos;t be put on the clipboard</source>
        <translation>クリップは保存されましたが、クリップボードに入れられませんでした</translation>
    </message>
    <message>
        <source>the clip could not be copied, so nothing was recorded. %1</source>
        <translation>クリップをコピーできないため、何も録画していません。%1</translation>
    </message>
    <message>
        <source>warning: only %1x%2 of the region&apos;s %3x%4 are on the main display; the rest is not in the clip</source>
        <translation>警告: 範囲 %3x%4 のうちメインディスプレイ上にあるのは %1x%2 だけです。残りはクリップに含まれません</translation>
    </message>
    <message>
        <source>warning: the clip may begin with remains of the selection: the desktop took more than two seconds to remove them from the screen</source>
        <translation>警告: クリップの先頭に選択画面が残っている可能性があります: デスクトップが画面から消すのに 2 秒以上かかりました</translation>
    </message>
</context>
<context>
    <name>RecordingCoordinator</name>
    <message>
        <source>an unknown error</source>
        <translation>不明なエラー</translation>
    </message>
    <message>
        <source>There is no display to record</source>
        <translation>録画できるディスプレイがありません</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>There is not enough memory for this recording</source>
        <translation>この録画に必要なメモリが足りません</translation>
    </message>
    <message>
        <source>Couldn&apos;t start recording: %1</source>
        <translation>録画を開始できませんでした: %1</translation>
    </message>
    <message>
        <source>No frames captured.</source>
        <translation>フレームがありません。</translation>
    </message>
    <message>
        <source>Couldn&apos;t save clip: %1</source>
        <translation>クリップを保存できませんでした: %1</translation>
    </message>
    <message>
        <source>Region too large to encode (%1×%2). Max is %3 per side.</source>
        <translation>範囲が大きすぎてエンコードできません (%1×%2)。1 辺は最大 %3 です。</translation>
    </message>
</context>
<context>
    <name>RecoverCommand</name>
    <message>
        <source>no recording was cut off; there is nothing to recover</source>
        <translation>途切れた録画はなく、復元するものはありません</translation>
    </message>
    <message>
        <source>several recordings were cut off; leave out -o to make a clip of each</source>
        <translation>途切れた録画が複数あります。-o を外すと、それぞれのクリップを作ります</translation>
    </message>
</context>
<context>
    <name>ResultReport</name>
    <message>
        <source>%1: %2, %3, %4, %5 fps, %6 s, %7</source>
        <translation>%1: %2、%3、%4、%5 fps、%6 秒、%7</translation>
    </message>
    <message numerus="yes">
        <source>%n frame(s)</source>
        <translation>
            <numerusform>%n フレーム</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n colour(s)</source>
        <translation>
            <numerusform>%n 色</numerusform>
        </translation>
    </message>
    <message>
        <source>dithered</source>
        <translation>ディザあり</translation>
    </message>
    <message>
        <source>not dithered</source>
        <translation>ディザなし</translation>
    </message>
    <message>
        <source>; over the %1 MB budget of %2: record less, or a smaller part of the screen</source>
        <translation>。%2 の上限 %1 MB を超えています。録画を短くするか、画面の範囲を小さくしてください</translation>
    </message>
    <message>
        <source>; over the %1 of --max-size: record less, or a smaller part of the screen</source>
        <translation>; --max-size の %1 を超えています: 短く、または画面のより狭い範囲を録画してください</translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: at most %2 a second, and changes of less than 1 % merge (--precise keeps them)</source>
        <translation>
            <numerusform>。%n 枚のうち %1 枚を採用: 毎秒 %2 枚まで、1 % 未満の変化はまとめられます (--precise なら残ります)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: changes of less than 1 % merge (--precise keeps them)</source>
        <translation>
            <numerusform>。%n 枚のうち %1 枚を採用: 1 % 未満の変化はまとめられます (--precise なら残ります)</numerusform>
        </translation>
    </message>
    <message>
        <source>; over the %1 MB budget of %2: try --max-width, --crop, fewer frames or another --preset</source>
        <translation>。%2 の上限 %1 MB を超えています: --max-width、--crop、フレームを減らす、別の --preset を試してください</translation>
    </message>
    <message>
        <source>picture %1 dB less exact</source>
        <translation>画像の正確さ −%1 dB</translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) left out</source>
        <translation>
            <numerusform>変化 %n 件を省略</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 % narrower</source>
        <translation>幅 −%1 %</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1、%2</translation>
    </message>
    <message>
        <source>; to fit: %1</source>
        <translation>。サイズに収めるため: %1</translation>
    </message>
    <message numerus="yes">
        <source>; %n picture(s), %1 kept: at most %2 a second (--max-fps)</source>
        <translation>
            <numerusform>。%n 枚のうち %1 枚を保持: 毎秒最大 %2 枚（--max-fps）</numerusform>
        </translation>
    </message>
    <message>
        <source>, every change kept</source>
        <translation>、すべての変化を保持</translation>
    </message>
    <message>
        <source>%1: %2, %3, %4, %5 s</source>
        <translation>%1: %2、%3、%4、%5 秒</translation>
    </message>
    <message>
        <source>; over the %1 of --max-size: try --max-width, --crop or fewer frames</source>
        <translation>。--max-size の %1 を超えています: --max-width、--crop、またはより少ないフレームを試してください</translation>
    </message>
</context>
<context>
    <name>StatusReport</name>
    <message numerus="yes">
        <source>%n recording(s) cut off; quillbox recover makes clips</source>
        <translation>
            <numerusform>途切れた録画 %n 件。quillbox recover でクリップにできます</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Streams</name>
    <message>
        <source>standard output</source>
        <translation>標準出力</translation>
    </message>
    <message>
        <source>standard error</source>
        <translation>標準エラー出力</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>標準入力</translation>
    </message>
</context>
<context>
    <name>UpdaterController</name>
    <message>
        <source>The system&apos;s software service can&apos;t be reached.</source>
        <translation>システムのソフトウェアサービスに接続できません。</translation>
    </message>
    <message>
        <source>The system&apos;s software service ended while it was working.</source>
        <translation>システムのソフトウェアサービスが処理の途中で終了しました。</translation>
    </message>
    <message>
        <source>This copy of Quillbox was not installed as a package, so the system can&apos;t update it.</source>
        <translation>この Quillbox はパッケージとしてインストールされていないため、システムでは更新できません。</translation>
    </message>
    <message>
        <source>None of this computer&apos;s package sources offers Quillbox.</source>
        <translation>このコンピューターのパッケージソースに Quillbox がありません。</translation>
    </message>
    <message>
        <source>You were not allowed to do this, or no password was given.</source>
        <translation>許可されていないか、パスワードが入力されませんでした。</translation>
    </message>
    <message>
        <source>The package sources can&apos;t be reached. Is this computer online?</source>
        <translation>パッケージソースに接続できません。オンラインになっていますか?</translation>
    </message>
    <message>
        <source>The new version isn&apos;t signed by anybody this system trusts, so it was not installed.</source>
        <translation>新しいバージョンにはこのシステムが信頼する署名がないため、インストールしませんでした。</translation>
    </message>
    <message>
        <source>Another program is installing software. Try again once it is done.</source>
        <translation>別のプログラムがソフトウェアをインストールしています。終わってからもう一度お試しください。</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>アップデートはキャンセルされました。</translation>
    </message>
    <message>
        <source>The system reported success, but the old version is still installed.</source>
        <translation>システムは成功と報告しましたが、古いバージョンのままです。</translation>
    </message>
    <message>
        <source>The system&apos;s software service didn&apos;t say why.</source>
        <translation>システムのソフトウェアサービスは理由を示しませんでした。</translation>
    </message>
    <message>
        <source>The system&apos;s software service says: %1</source>
        <translation>システムのソフトウェアサービスからのメッセージ: %1</translation>
    </message>
    <message>
        <source>The package sources can&apos;t be reached, so there may be a newer version still.</source>
        <translation>パッケージソースに接続できないため、さらに新しいバージョンがあるかもしれません。</translation>
    </message>
    <message>
        <source>The package sources were not asked anew, so there may be a newer version still.</source>
        <translation>パッケージソースを改めて確認していないため、さらに新しいバージョンがあるかもしれません。</translation>
    </message>
    <message>
        <source>The package sources couldn&apos;t be read anew, so there may be a newer version still.</source>
        <translation>パッケージソースを読み直せなかったため、さらに新しいバージョンがあるかもしれません。</translation>
    </message>
    <message>
        <source>Updates are switched off by QUILLBOX_UPDATE_BACKEND.</source>
        <translation>QUILLBOX_UPDATE_BACKEND により更新は無効になっています。</translation>
    </message>
</context>
<context>
    <name>Usage</name>
    <message>
        <source>standard output is a terminal, which can&apos;t show a GIF; redirect it, or name a file with -o</source>
        <translation>標準出力が端末のため GIF を表示できません。リダイレクトするか -o でファイルを指定してください</translation>
    </message>
    <message>
        <source>--preset: there is no preset &quot;%1&quot;; use slack, github or docs</source>
        <translation>--preset: プリセット「%1」はありません。slack、github、docs のいずれかを使ってください</translation>
    </message>
    <message>
        <source>-o: the name is empty; name a file, or - for standard output</source>
        <translation>-o: 名前が空です。ファイル名、または標準出力を表す - を指定してください</translation>
    </message>
    <message>
        <source>--dither: there is no &quot;%1&quot;; use auto, always or never</source>
        <translation>--dither: 「%1」はありません。auto、always、never のいずれかを使ってください</translation>
    </message>
    <message>
        <source>--raw: &quot;%1&quot; is not a size; write it like 1280x720</source>
        <translation>--raw: 「%1」は大きさではありません。1280x720 のように書いてください</translation>
    </message>
    <message>
        <source>name the region with --region X,Y,WxH, or drag it out with --select</source>
        <translation>--region X,Y,WxH で範囲を指定するか、--select でドラッグしてください</translation>
    </message>
    <message>
        <source>--region: &quot;%1&quot; is not a region; write it like 100,50,640x480 (left, top, size)</source>
        <translation>--region: 「%1」は範囲ではありません。100,50,640x480 (左、上、大きさ) のように書いてください</translation>
    </message>
    <message>
        <source>--copy: the clipboard needs a file; leave out -o - or --copy</source>
        <translation>--copy: クリップボードにはファイルが必要です。-o - か --copy を外してください</translation>
    </message>
    <message>
        <source>--duration: &quot;%1&quot; is not a number of seconds above 0, at most 86400</source>
        <translation>--duration: 「%1」は 0 より大きく 86400 以下の秒数ではありません</translation>
    </message>
    <message>
        <source>%1; see %2</source>
        <translation>%1。%2 を参照してください</translation>
    </message>
    <message>
        <source>this INPUT gives the GIF no name; add one, like -o clip.gif</source>
        <translation>この INPUT からは GIF の名前を決められません。-o clip.gif のように指定してください</translation>
    </message>
    <message>
        <source>%1 is a YUV4MPEG2 stream; give it alone</source>
        <translation>%1 は YUV4MPEG2 ストリームです。単独で指定してください</translation>
    </message>
    <message>
        <source>--raw: give one INPUT with all frames, one after another</source>
        <translation>--raw: 全フレームを続けて収めた INPUT を 1 つだけ指定してください</translation>
    </message>
    <message>
        <source>standard input must be the only INPUT</source>
        <translation>標準入力は唯一の INPUT でなければなりません</translation>
    </message>
    <message>
        <source>%1 belongs to --precise; add that</source>
        <translation>%1 は --precise とともに使います。--precise を付けてください</translation>
    </message>
    <message>
        <source>--max-size: &quot;%1&quot; is not a size; write it like 750K or 1.5M</source>
        <translation>--max-size: 「%1」はサイズではありません。750K や 1.5M のように書いてください</translation>
    </message>
    <message>
        <source>--max-width: use a number of pixels from %1 to %2</source>
        <translation>--max-width: %1 から %2 までのピクセル数を使ってください</translation>
    </message>
    <message>
        <source>--max-fps: use a number of pictures a second from %1 to %2</source>
        <translation>--max-fps: %1 から %2 までの 1 秒あたりの画像数を使ってください</translation>
    </message>
    <message>
        <source>--colors: use a number of colours from %1 to %2</source>
        <translation>--colors: %1 から %2 までの色数を使ってください</translation>
    </message>
    <message>
        <source>-o: &quot;%1&quot; is no name for a GIF; let it end in .gif</source>
        <translation>-o: 「%1」は GIF の名前ではありません。.gif で終わる名前にしてください</translation>
    </message>
    <message>
        <source>--crop: &quot;%1&quot; is not a part; write it like 10,20,640x480 (left, top, size)</source>
        <translation>--crop: 「%1」は部分を表していません。10,20,640x480 (左、上、大きさ) のように書いてください</translation>
    </message>
    <message>
        <source>--matrix: there is no &quot;%1&quot;; use bt601, bt709 or bt2020</source>
        <translation>--matrix: 「%1」はありません。bt601、bt709、bt2020 のどれかを使ってください</translation>
    </message>
    <message>
        <source>--background: &quot;%1&quot; is not a colour; write it like #FFFFFF, white or black</source>
        <translation>--background: 「%1」は色ではありません。#FFFFFF、white、black のように書いてください</translation>
    </message>
    <message>
        <source>--raw-format: there is no &quot;%1&quot;; use rgba, bgra, rgb or bgr</source>
        <translation>--raw-format: 「%1」はありません。rgba、bgra、rgb、bgr のどれかを使ってください</translation>
    </message>
    <message>
        <source>--source-fps: &quot;%1&quot; is not a number of frames per second; write it like 12, 29.97 or 30000/1001, 1000 at most</source>
        <translation>--source-fps: 「%1」は 1 秒あたりのフレーム数ではありません。12、29.97、30000/1001 のように、1000 以下で書いてください</translation>
    </message>
    <message>
        <source>--delay and --source-fps say the same; use one of them</source>
        <translation>--delay と --source-fps は同じことを表します。どちらか一方を使ってください</translation>
    </message>
    <message>
        <source>--delay: &quot;%1&quot; is not a number of seconds from 0.001 to 655.35</source>
        <translation>--delay: 「%1」は 0.001 から 655.35 までの秒数ではありません</translation>
    </message>
    <message>
        <source>--raw: &quot;%1&quot; can&apos;t be; each side must be 1 to 65535 pixels</source>
        <translation>--raw: 「%1」は使えません。各辺は 1 から 65535 ピクセルでなければなりません</translation>
    </message>
    <message>
        <source>--threads: use a number from %1 to %2</source>
        <translation>--threads: %1 から %2 までの数を使ってください</translation>
    </message>
    <message>
        <source>--loop: use a number from %1 to %2</source>
        <translation>--loop: %1 から %2 までの数を使ってください</translation>
    </message>
    <message>
        <source>help: there is no command &quot;%1&quot;; see quillbox --help</source>
        <translation>help: コマンド「%1」はありません。quillbox --help を見てください</translation>
    </message>
    <message>
        <source>QUILLBOX_RECORDING_MEMORY is &quot;%1&quot;; make it a whole number of megabytes, or unset it</source>
        <translation>QUILLBOX_RECORDING_MEMORY が「%1」です。整数のメガバイト数にするか、設定を外してください</translation>
    </message>
    <message>
        <source>standard input is a terminal; pipe an image, a YUV4MPEG2 stream or raw frames into it</source>
        <translation>標準入力は端末です。画像、YUV4MPEG2 ストリーム、または生フレームをパイプで渡してください</translation>
    </message>
    <message>
        <source>--list and --discard can&apos;t be had at once; use one of them</source>
        <translation>--list と --discard は同時に使えません。どちらかを使ってください</translation>
    </message>
    <message>
        <source>--region and --select were both given; use one of them to say what to record</source>
        <translation>--region と --select の両方が指定されています。録画する範囲はどちらか一方で指定してください</translation>
    </message>
    <message>
        <source>--dither: --precise mixes no colours; leave out one of them</source>
        <translation>--dither: --precise は色を混ぜません。どちらか一方を外してください</translation>
    </message>
    <message>
        <source>%1 belongs to --raw; add that</source>
        <translation>%1 は --raw とともに使います。--raw を付けてください</translation>
    </message>
    <message>
        <source>--matrix: raw frames are red, green and blue; leave it out</source>
        <translation>--matrix: 生のフレームは赤・緑・青です。指定を外してください</translation>
    </message>
    <message>
        <source>--background: %1 frames have no transparency; leave it out</source>
        <translation>--background: %1 のフレームには透明度がありません。指定を外してください</translation>
    </message>
    <message>
        <source>QUILLBOX_JOURNAL is &quot;%1&quot;; set it to off to keep no recording on disk, or unset it</source>
        <translation>QUILLBOX_JOURNAL が「%1」です。録画をディスクに保存しないなら off にするか、設定を解除してください</translation>
    </message>
</context>
<context>
    <name>quillbox::ApplicationService</name>
    <message>
        <source>Nothing is being recorded</source>
        <translation>録画していません</translation>
    </message>
    <message>
        <source>A clip is being made already</source>
        <translation>すでにクリップを作成中です</translation>
    </message>
    <message>
        <source>Nothing has been recorded since Quillbox was started</source>
        <translation>Quillbox の起動後、まだ何も録画されていません</translation>
    </message>
    <message>
        <source>There is no preset “%1”</source>
        <translation>「%1」というプリセットはありません</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipActions</name>
    <message>
        <source>No program opens the clip.</source>
        <translation>クリップを開くプログラムがありません。</translation>
    </message>
    <message>
        <source>The clip can&apos;t be read.</source>
        <translation>クリップを読み込めません。</translation>
    </message>
    <message>
        <source>The clip could not be moved to the trash.</source>
        <translation>クリップをゴミ箱に移動できませんでした。</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipNotices</name>
    <message>
        <source>The recording ended early</source>
        <translation>録画が途中で終了しました</translation>
    </message>
    <message>
        <source>%1. What was recorded is kept.</source>
        <translation>%1。録画済みの部分は残ります。</translation>
    </message>
    <message>
        <source>The clip is ready to paste</source>
        <translation>クリップを貼り付けられます</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>No clip was made</source>
        <translation>クリップは作成されませんでした</translation>
    </message>
    <message>
        <source>The clip may begin with remains of the selection</source>
        <translation>クリップの先頭に選択画面が残っている可能性があります</translation>
    </message>
    <message>
        <source>The desktop took more than two seconds to remove them from the screen.</source>
        <translation>デスクトップが画面から消すのに 2 秒以上かかりました。</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipOffers</name>
    <message numerus="yes">
        <source>%1 of %2 · shows %3 of %Ln recorded picture(s)</source>
        <translation>
            <numerusform>%1 / %2 · 録画された %Ln 枚のうち %3 枚を表示</numerusform>
        </translation>
    </message>
    <message>
        <source>Make it sharper</source>
        <translation>もっと鮮明にする</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>もう一度試す</translation>
    </message>
    <message>
        <source>Save elsewhere…</source>
        <translation>別の場所に保存…</translation>
    </message>
    <message>
        <source>Again as %1</source>
        <translation>%1 用に作り直す</translation>
    </message>
    <message>
        <source>%1 over the %2 budget of %3</source>
        <translation>%3 の上限 %2 を %1 超過</translation>
    </message>
    <message numerus="yes">
        <source> · shows %1 of %Ln recorded picture(s)</source>
        <translation>
            <numerusform> · 録画された %Ln 枚のうち %1 枚を表示</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>quillbox::ClipPreview</name>
    <message>
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 ピクセル</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipResult</name>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>表示</translation>
    </message>
</context>
<context>
    <name>quillbox::ClipSaveDialog</name>
    <message>
        <source>Save Clip</source>
        <translation>クリップを保存</translation>
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
        <translation>途切れた録画が壊れているため、クリップを作成できません。</translation>
    </message>
    <message>
        <source>A recording from %1 was cut off (%2 s).</source>
        <translation>%1 の録画が途切れました（%2 秒）。</translation>
    </message>
    <message>
        <source>Make the clip</source>
        <translation>クリップを作成</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>破棄</translation>
    </message>
    <message>
        <source>Discard for good</source>
        <translation>完全に破棄</translation>
    </message>
    <message>
        <source>Keep it</source>
        <translation>残す</translation>
    </message>
</context>
<context>
    <name>quillbox::EdgeStop</name>
    <message>
        <source>Rest the pointer at the upper edge of the screen to see this again.</source>
        <translation>ポインターを画面の上端に置くと、もう一度表示されます。</translation>
    </message>
</context>
<context>
    <name>quillbox::FirstUseCard</name>
    <message>
        <source>How it works</source>
        <translation>使い方</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Quillbox waits in the tray of your desktop. Click its icon to open this panel.</source>
        <translation>Quillbox はデスクトップのトレイで待機します。アイコンをクリックするとこのパネルが開きます。</translation>
    </message>
    <message>
        <source>This desktop has no tray for an icon. Start Quillbox again to open this panel.</source>
        <translation>このデスクトップにはアイコンを置くトレイがありません。Quillbox をもう一度起動するとこのパネルが開きます。</translation>
    </message>
    <message>
        <source>Clips are copied, ready to paste, and saved in %1.</source>
        <translation>クリップはコピーされてすぐに貼り付けられ、%1 に保存されます。</translation>
    </message>
    <message>
        <source>Press %1 (⌘⇧2) in any program and drag out a region to record it.</source>
        <translation>どのプログラムでも %1 (⌘⇧2) を押し、録画する範囲をドラッグします。</translation>
    </message>
</context>
<context>
    <name>quillbox::HistoryNotice</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
</context>
<context>
    <name>quillbox::HistoryPanel</name>
    <message>
        <source>Recent Clips</source>
        <translation>最近のクリップ</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>消去</translation>
    </message>
    <message>
        <source>No clips yet</source>
        <translation>クリップはまだありません</translation>
    </message>
    <message>
        <source>Your recorded clips will show up here.</source>
        <translation>録画したクリップがここに表示されます。</translation>
    </message>
    <message>
        <source>The files are still there.</source>
        <translation>ファイルは残っています。</translation>
    </message>
    <message>
        <source>Move “%1” to the trash?</source>
        <translation>「%1」をゴミ箱に移動しますか？</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>ゴミ箱に移動</translation>
    </message>
</context>
<context>
    <name>quillbox::HistoryRow</name>
    <message>
        <source>clip</source>
        <translation>クリップ</translation>
    </message>
    <message>
        <source>· %1s</source>
        <translation>· %1 秒</translation>
    </message>
    <message>
        <source>Reveal in Finder</source>
        <translation>ファイルマネージャーで表示</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Move to Trash…</source>
        <translation>ゴミ箱に移動…</translation>
    </message>
</context>
<context>
    <name>quillbox::MonitorNotice</name>
    <message>
        <source>Recording is possible on %1 only. Drag there.</source>
        <translation>録画できるのは %1 だけです。そちらでドラッグしてください。</translation>
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
        <translation>コピー</translation>
    </message>
    <message>
        <source>Puts the clip on the clipboard</source>
        <translation>クリップをクリップボードに入れます</translation>
    </message>
    <message>
        <source>The clip is not on the clipboard yet.</source>
        <translation>クリップはまだクリップボードにありません。</translation>
    </message>
</context>
<context>
    <name>quillbox::PortalHotkey</name>
    <message>
        <source>Record a region of the screen</source>
        <translation>画面の一部を録画</translation>
    </message>
</context>
<context>
    <name>quillbox::RecorderHUD</name>
    <message>
        <source>Press ⌘⇧2 or Record to capture a region.</source>
        <translation>⌘⇧2 または「範囲を録画」で画面の一部を録画します。</translation>
    </message>
    <message>
        <source>Drag to select a region…</source>
        <translation>ドラッグして範囲を選択…</translation>
    </message>
    <message>
        <source>Recording…</source>
        <translation>録画中…</translation>
    </message>
    <message>
        <source>Optimizing GIF…</source>
        <translation>GIF を最適化しています…</translation>
    </message>
    <message>
        <source>Copied — %1 · %2</source>
        <translation>コピーしました — %1 · %2</translation>
    </message>
    <message>
        <source>Quillbox</source>
        <translation>Quillbox</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>プリセット</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
    <message>
        <source>Finish now</source>
        <translation>今すぐ完了</translation>
    </message>
    <message>
        <source>Ends with the smallest file made so far</source>
        <translation>これまでで最も小さいファイルで終えます</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>アップデートを確認…</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Stop &amp; Copy</source>
        <translation>停止してコピー</translation>
    </message>
    <message>
        <source>Record Region</source>
        <translation>範囲を録画</translation>
    </message>
    <message>
        <source>Keep every change</source>
        <translation>すべての変化を残す</translation>
    </message>
    <message>
        <source>Shows all that changed, as sharp as the size allows</source>
        <translation>変化したものをすべて、サイズの許すかぎり鮮明に表示します</translation>
    </message>
</context>
<context>
    <name>quillbox::SelectionWindow</name>
    <message>
        <source>Select a region</source>
        <translation>範囲を選択</translation>
    </message>
    <message>
        <source>Drag to record · Esc cancels</source>
        <translation>ドラッグで録画 · Esc でキャンセル</translation>
    </message>
</context>
<context>
    <name>quillbox::SettingsView</name>
    <message>
        <source>Capture</source>
        <translation>録画</translation>
    </message>
    <message>
        <source>Global hotkey</source>
        <translation>グローバルホットキー</translation>
    </message>
    <message>
        <source>⌘⇧2</source>
        <translation>⌘⇧2</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>プライバシー</translation>
    </message>
    <message>
        <source>Everything stays on your Mac. No cloud, no telemetry, no account.</source>
        <translation>すべてこのコンピューター内にとどまります。クラウドもテレメトリーもアカウントもありません。</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>General</source>
        <translation>一般</translation>
    </message>
</context>
<context>
    <name>quillbox::StopControl</name>
    <message>
        <source>Recording — Quillbox</source>
        <translation>録画中 — Quillbox</translation>
    </message>
    <message>
        <source>Stop &amp; Copy</source>
        <translation>停止してコピー</translation>
    </message>
</context>
<context>
    <name>quillbox::TrayIcon</name>
    <message>
        <source>Open Quillbox</source>
        <translation>Quillbox を開く</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Stop &amp;&amp; Copy</source>
        <translation>停止してコピー</translation>
    </message>
    <message>
        <source>Record Region</source>
        <translation>範囲を録画</translation>
    </message>
    <message>
        <source>Quillbox — Recording…</source>
        <translation>Quillbox — 録画中…</translation>
    </message>
    <message>
        <source>Keep every change</source>
        <translation>すべての変化を残す</translation>
    </message>
</context>
<context>
    <name>quillbox::TraylessStop</name>
    <message>
        <source>The screen is being recorded</source>
        <translation>画面を録画しています</translation>
    </message>
    <message>
        <source>“Stop &amp; Copy” ends the recording.</source>
        <translation>「停止してコピー」で録画を終了します。</translation>
    </message>
    <message>
        <source>Stop &amp; Copy</source>
        <translation>停止してコピー</translation>
    </message>
</context>
<context>
    <name>quillbox::UpdateView</name>
    <message>
        <source>Looking for updates…</source>
        <translation>アップデートを確認しています…</translation>
    </message>
    <message>
        <source>The system is asked whether it knows a newer version.</source>
        <translation>新しいバージョンがあるかシステムに問い合わせています。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Quillbox is up to date</source>
        <translation>Quillbox は最新です</translation>
    </message>
    <message>
        <source>No newer version has been announced.</source>
        <translation>新しいバージョンは発表されていません。</translation>
    </message>
    <message>
        <source>%1 is the newest version on offer.</source>
        <translation>%1 が入手できる最新バージョンです。</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>No newer version is known</source>
        <translation>新しいバージョンは見つかりません</translation>
    </message>
    <message>
        <source>Version %1 is installed.</source>
        <translation>バージョン %1 がインストールされています。</translation>
    </message>
    <message>
        <source>A new version of Quillbox is available</source>
        <translation>Quillbox の新しいバージョンがあります</translation>
    </message>
    <message>
        <source>Quillbox %1 is available</source>
        <translation>Quillbox %1 が利用できます</translation>
    </message>
    <message>
        <source>The system installs it, and may ask for your password.</source>
        <translation>システムがインストールします。パスワードを求められることがあります。</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>後で</translation>
    </message>
    <message>
        <source>Installing the new version…</source>
        <translation>新しいバージョンをインストールしています…</translation>
    </message>
    <message>
        <source>Installing Quillbox %1…</source>
        <translation>Quillbox %1 をインストールしています…</translation>
    </message>
    <message>
        <source>You can go on working meanwhile.</source>
        <translation>その間も作業を続けられます。</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>隠す</translation>
    </message>
    <message>
        <source>The new version is installed</source>
        <translation>新しいバージョンをインストールしました</translation>
    </message>
    <message>
        <source>Quillbox %1 is installed</source>
        <translation>Quillbox %1 をインストールしました</translation>
    </message>
    <message>
        <source>Restart Quillbox to use it.</source>
        <translation>使うには Quillbox を再起動してください。</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>アップデート</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
    <message>
        <source>Show in Software Center</source>
        <translation>ソフトウェアセンターで表示</translation>
    </message>
    <message>
        <source>Install</source>
        <translation>インストール</translation>
    </message>
    <message>
        <source>Restart Quillbox</source>
        <translation>Quillbox を再起動</translation>
    </message>
    <message>
        <source>It can be restarted once your clip is done.</source>
        <translation>クリップが完成したら再起動できます。</translation>
    </message>
</context>
<context>
    <name>quillbox::UpdaterController</name>
    <message>
        <source>Couldn&apos;t look for updates</source>
        <translation>アップデートを確認できませんでした</translation>
    </message>
    <message>
        <source>Couldn&apos;t install the update</source>
        <translation>アップデートをインストールできませんでした</translation>
    </message>
</context>
</TS>
