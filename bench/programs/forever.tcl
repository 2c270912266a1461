# A loop without an end that a condition leaves.
set size 1000000
proc main {size} {
    set n 0
    set random 1
    set sum 0
    while {1} {
        incr n
        set random [expr {($random * 421 + 1663) % 7875}]
        incr sum $random
        if {$n == $size} break
    }
    puts $sum
}
main $size
