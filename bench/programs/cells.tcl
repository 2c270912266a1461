# A table of many short texts, each stored by both indexes; its memory is what counts.
set size 1000
proc main {size} {
    set table [lrepeat $size [lrepeat 1000 項目]]
    for {set i 0} {$i < $size} {incr i} {
        for {set j 1} {$j <= 1000} {incr j} {
            lset table $i [expr {$j - 1}] 語$j
        }
    }
    set text ""
    foreach row $table {append text [join $row ,] \r\n}
    puts [string length $text]
    puts [string range $text 0 19]
}
main $size
