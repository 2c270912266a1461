# The counted loop inside a procedure.
set size 3000000
proc main {size} {
    set sum 0
    for {set i 0} {$i < $size} {incr i} {
        set sum [expr {($sum + $i * 3) % 1000003}]
    }
    puts $sum
}
main $size
