# Sorting a list of texts, all of them different.
set size 100000
proc main {size} {
    set table ""
    for {set i 1} {$i <= $size} {incr i} {
        append table 語[expr {$i * 7919 % 100003}]
        if {$i < $size} {append table ,}
    }
    set table [join [lsort -ascii [split $table ,]] ,]
    puts [string range $table 0 39]
    puts [string range $table end-39 end]
}
main $size
