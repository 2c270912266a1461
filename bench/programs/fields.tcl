# Fields of a long list.
set size 100000
proc main {size} {
    set text ""
    for {set i 1} {$i <= $size} {incr i} {
        append text $i ,
    }
    set sum 0
    set fields [split $text ,]
    for {set i 1} {$i <= $size} {incr i} {
        incr sum [lindex $fields [expr {$i % 200}]]
    }
    puts $sum
}
main $size
