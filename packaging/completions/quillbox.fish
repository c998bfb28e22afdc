# Completes the command line of quillbox in fish.

complete -c quillbox -f
complete -c quillbox -s h -l help -d 'Print help'
complete -c quillbox -n __fish_use_subcommand -s V -l version -d 'Print the version'

complete -c quillbox -n __fish_use_subcommand -a encode -d 'Turn images, YUV4MPEG2 or raw frames into a GIF'
complete -c quillbox -n __fish_use_subcommand -a record -d 'Record a region of the screen as a GIF'
complete -c quillbox -n __fish_use_subcommand -a begin -d 'Let the user drag out a region and record it'
complete -c quillbox -n __fish_use_subcommand -a stop -d 'Stop recording, save and copy the clip'
complete -c quillbox -n __fish_use_subcommand -a toggle -d 'Stop a recording, or begin one'
complete -c quillbox -n __fish_use_subcommand -a again -d 'Make another clip of what was recorded last'
complete -c quillbox -n __fish_use_subcommand -a show -d 'Open the panel'
complete -c quillbox -n __fish_use_subcommand -a status -d 'Print what the application is doing'
complete -c quillbox -n __fish_use_subcommand -a quit -d 'End the application'
complete -c quillbox -n __fish_use_subcommand -a history -d 'List the clips made lately, newest first'
complete -c quillbox -n __fish_use_subcommand -a recover -d 'Make clips of recordings that were cut off'
complete -c quillbox -n __fish_use_subcommand -a doctor -d 'Tell what this desktop has, and what is missing'
complete -c quillbox -n __fish_use_subcommand -a help -d 'Print the help of a command'

set -l makes_clips '__fish_seen_subcommand_from encode record recover'
complete -c quillbox -n $makes_clips -l preset -x -a 'slack\t"2 MB, 960 pixels wide" github\t"10 MB" docs\t"5 MB"' \
    -d 'Where the GIF is meant for'
complete -c quillbox -n $makes_clips -s o -l output -r -F -d 'The GIF to write, - for standard output'
complete -c quillbox -n $makes_clips -l json -d 'Describe the result as a JSON object'
complete -c quillbox -n $makes_clips -l force -d 'Replace the file if it exists'
complete -c quillbox -n $makes_clips -l precise -d 'Show every change'
complete -c quillbox -n $makes_clips -l max-size -x -d 'With --precise: the size instead of the preset'
complete -c quillbox -n $makes_clips -l max-width -x -d 'Shrink wider frames to so many pixels'
complete -c quillbox -n $makes_clips -l max-fps -x -d 'With --precise: the most pictures a second'
complete -c quillbox -n $makes_clips -l colors -x -d 'With --precise: the most colours of a picture'
complete -c quillbox -n $makes_clips -s q -l quiet -d 'Print neither progress nor the result'

set -l encode '__fish_seen_subcommand_from encode'
complete -c quillbox -n $encode -F
complete -c quillbox -n $encode -l source-fps -x -d 'Frames per second of the input'
complete -c quillbox -n $encode -l dither -x -a 'auto always never' -d 'Mix colours that the palette lacks'
complete -c quillbox -n $encode -l raw -x -d 'The input is raw frames of this size'
complete -c quillbox -n $encode -l raw-format -x -a 'rgba bgra rgb bgr' -d 'With --raw: the bytes of a pixel'
complete -c quillbox -n $encode -l delay -x -d 'Show each frame of the input for so many seconds'
complete -c quillbox -n $encode -l crop -x -d 'Take this part of each frame: X,Y,WxH'
complete -c quillbox -n $encode -l loop -x -d 'Play the GIF so many times'
complete -c quillbox -n $encode -l threads -x -d 'Encode with so many threads'
complete -c quillbox -n $encode -l matrix -x -a 'bt601 bt709 bt2020' -d 'By which standard the stream has its colours'
complete -c quillbox -n $encode -l background -x -d 'What shows through transparent pixels'
complete -c quillbox -n $encode -l strict -d 'Refuse images of another size than the first'
complete -c quillbox -n $encode -l keep-going -d 'Leave out what is damaged or cut off'

set -l record '__fish_seen_subcommand_from record'
complete -c quillbox -n $record -l region -x -d 'Left, top and size of the region: X,Y,WxH'
complete -c quillbox -n $record -l select -d 'Drag the region out on the screen'
complete -c quillbox -n $record -l duration -x -d 'Stop after so many seconds'
complete -c quillbox -n $record -l copy -d 'Put the clip on the clipboard, too'

set -l recover '__fish_seen_subcommand_from recover'
complete -c quillbox -n $recover -l list -d 'Only list them'
complete -c quillbox -n $recover -l discard -d 'Remove them instead'

complete -c quillbox -n '__fish_seen_subcommand_from begin stop toggle again status history doctor' -l json -d 'Answer with JSON'
complete -c quillbox -n '__fish_seen_subcommand_from begin again' -l precise -d 'Keep every change in this clip'
complete -c quillbox -n '__fish_seen_subcommand_from again' -l preset -x -a 'slack github docs' \
    -d 'Where the GIF is meant for'
