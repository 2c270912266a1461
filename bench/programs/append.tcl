# A text that grows by pieces.
set size 100000
proc main {size} {
    set text ""
    for {set i 1} {$i <= $size} {incr i} {
        append text $i ","
    }
    puts [string length $text]
    puts [string range $text end-7 end]
}
main $size
