# Replacing in a text of ten million characters.
set size 500000
proc main {size} {
    set text [string repeat "春は桜が咲き　Abcdefghij。\r\n" $size]
    puts [string length $text]
    set text [string map {桜 梅の花} $text]
    set text [string map {Abc ""} $text]
    puts [string length $text]
    puts [string range $text 0 15]
    puts [regexp -all 梅 $text]
}
main $size
