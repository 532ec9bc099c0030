# Completion of kestrel(1) for fish.

complete -c kestrel -f
complete -c kestrel -n __fish_use_subcommand -a overview -d 'The machine on one screen'
complete -c kestrel -n __fish_use_subcommand -a show -d 'Every structure in words'
complete -c kestrel -n __fish_use_subcommand -a get -d 'Single values, for scripts'
complete -c kestrel -n __fish_use_subcommand -a html -d 'A page for a browser'
complete -c kestrel -n __fish_use_subcommand -a report -d 'The text report'
complete -c kestrel -n __fish_use_subcommand -a mif -d 'The MIF document, as consoles read it'
complete -c kestrel -n __fish_use_subcommand -a json -d 'Every structure, decoded, as JSON'
complete -c kestrel -n __fish_use_subcommand -a bios -d 'Vendor, version and release date of the BIOS'
complete -c kestrel -n __fish_use_subcommand -a list -d 'A line for each structure'
complete -c kestrel -n __fish_use_subcommand -a check -d 'A line for each fault of the table'
complete -c kestrel -n __fish_use_subcommand -a save -d 'Save the tables of this machine'
complete -c kestrel -n __fish_use_subcommand -l version -d 'Show the version'
complete -c kestrel -l help -d 'Show the help'

set -l source_commands overview show get html report mif json bios list check
complete -c kestrel -n "__fish_seen_subcommand_from $source_commands" -l image -r -F -d 'A saved image'
complete -c kestrel -n "__fish_seen_subcommand_from $source_commands" -l format -x -a 'auto memory dump rsmb raw' -d 'The kind of the image'
complete -c kestrel -n "__fish_seen_subcommand_from $source_commands" -l smbios-version -x -d 'The version of a raw table'
complete -c kestrel -n "__fish_seen_subcommand_from $source_commands" -l sample -d 'The example PC'
complete -c kestrel -n '__fish_seen_subcommand_from show html report mif json' -s o -l output -r -F -d 'Write to a file'
complete -c kestrel -n '__fish_seen_subcommand_from report' -l exact -d "The library's bytes"
complete -c kestrel -n '__fish_seen_subcommand_from json show' -l type -x -a 'bios system baseboard chassis processor memory cache connector slot' -d 'Structures of this type only'
complete -c kestrel -n '__fish_seen_subcommand_from show' -l handle -x -d 'The structure with this handle'
complete -c kestrel -n '__fish_seen_subcommand_from json check' -l lines -d 'JSON on one line'
complete -c kestrel -n '__fish_seen_subcommand_from json check' -l images-from -r -F -d 'A list of images'
complete -c kestrel -n '__fish_seen_subcommand_from json' -l overview -d 'The machine at a glance instead of structures'
complete -c kestrel -n '__fish_seen_subcommand_from get' -a 'bios-vendor bios-version bios-release-date bios-revision firmware-revision system-manufacturer system-product-name system-version system-serial-number system-uuid system-sku-number system-family baseboard-manufacturer baseboard-product-name baseboard-version baseboard-serial-number baseboard-asset-tag chassis-manufacturer chassis-type chassis-version chassis-serial-number chassis-asset-tag processor-family processor-manufacturer processor-version processor-frequency'
complete -c kestrel -n '__fish_seen_subcommand_from save' -l force -d 'Write over a file'
complete -c kestrel -n '__fish_seen_subcommand_from save' -F
