# A loop from one number to another.
set size 1000000
proc main {size} {
    set sum 0
    for {set i 1} {$i <= $size} {incr i} {
        set sum [expr {$sum + $i % 7 * 2}]
    }
    puts $sum
}
main $size
