# Lines of a long text, one after the other.
set size 100000
proc main {size} {
    set text ""
    for {set i 1} {$i <= $size} {incr i} {
        append text 行 $i \r\n
    }
    set limit [expr {min($size, 32767)}]
    set length 0
    set lines [split [string map {\r\n \n} $text] \n]
    for {set round 0} {$round < 3} {incr round} {
        for {set i 1} {$i <= $limit} {incr i} {
            incr length [string length [lindex $lines [expr {$i - 1}]]]
        }
    }
    puts $length
}
main $size
