# Prime numbers by a table that is read and written by index, several times over.
set size 100000
set rounds 1
proc main {size rounds} {
    set count 0
    set sum 0
    for {set round 0} {$round < $rounds} {incr round} {
        set mark [lrepeat [expr {$size + 1}] 0]
        for {set n 2} {$n <= $size} {incr n} {
            if {[lindex $mark $n] == 0} {
                incr count
                incr sum $n
                for {set m [expr {$n * $n}]} {$m <= $size} {incr m $n} {
                    lset mark $m 1
                }
            }
        }
    }
    puts $count
    puts $sum
}
main $size $rounds
