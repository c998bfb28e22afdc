# Completes the command line of quillbox in fish.

complete -c quillbox -f
complete -c quillbox -s h -l help -d 'Print help'
complete -c quillbox -n __fish_use_subcommand -l version -d 'Print the version'

complete -c quillbox -n __fish_use_subcommand -a encode -d 'Turn images, YUV4MPEG2 or raw frames into a GIF'
complete -c quillbox -n __fish_use_subcommand -a record -d 'Record a region of the screen as a GIF'
complete -c quillbox -n __fish_use_subcommand -a begin -d 'Let the user drag out a region and record it'
complete -c quillbox -n __fish_use_subcommand -a stop -d 'Stop recording, save and copy the clip'
complete -c quillbox -n __fish_use_subcommand -a toggle -d 'Stop a recording, or begin one'
complete -c quillbox -n __fish_use_subcommand -a show -d 'Open the panel'
complete -c quillbox -n __fish_use_subcommand -a status -d 'Print what the application is doing'
complete -c quillbox -n __fish_use_subcommand -a quit -d 'End the application'
complete -c quillbox -n __fish_use_subcommand -a history -d 'List the clips made lately, newest first'
complete -c quillbox -n __fish_use_subcommand -a doctor -d 'Tell what this desktop has, and what is missing'

set -l makes_clips '__fish_seen_subcommand_from encode record'
complete -c quillbox -n $makes_clips -l preset -x -a 'slack\t"2 MB, 960 pixels wide" github\t"10 MB" docs\t"5 MB"' \
    -d 'Where the GIF is meant for'
complete -c quillbox -n $makes_clips -s o -l output -r -F -d 'The GIF to write, - for standard output'
complete -c quillbox -n $makes_clips -l json -d 'Describe the result as a JSON object'
complete -c quillbox -n $makes_clips -l force -d 'Replace the file if it exists'
complete -c quillbox -n $makes_clips -l precise -d 'Show every change'
complete -c quillbox -n $makes_clips -l max-size -x -d 'With --precise: the size instead of the preset'
complete -c quillbox -n $makes_clips -l max-width -x -d 'With --precise: the width instead of the preset'
complete -c quillbox -n $makes_clips -l max-fps -x -d 'With --precise: the most pictures a second'
complete -c quillbox -n $makes_clips -l colors -x -d 'With --precise: the most colours of a picture'

set -l encode '__fish_seen_subcommand_from encode'
complete -c quillbox -n $encode -F
complete -c quillbox -n $encode -l source-fps -x -d 'Frames per second of the input'
complete -c quillbox -n $encode -l dither -x -a 'auto always never' -d 'Mix colours that the palette lacks'
complete -c quillbox -n $encode -l raw -x -d 'The input is raw RGBA frames of this size'

set -l record '__fish_seen_subcommand_from record'
complete -c quillbox -n $record -l region -x -d 'Left, top and size of the region: X,Y,WxH'
complete -c quillbox -n $record -l select -d 'Drag the region out on the screen'
complete -c quillbox -n $record -l duration -x -d 'Stop after so many seconds'
complete -c quillbox -n $record -l copy -d 'Put the clip on the clipboard, too'

complete -c quillbox -n '__fish_seen_subcommand_from begin stop toggle status history doctor' -l json -d 'Answer with JSON'
