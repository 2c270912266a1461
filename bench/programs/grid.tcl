# A table of rows by a hundred columns, read and written by both indexes, several times over.
set size 1000
set rounds 1
proc main {size rounds} {
    set table [lrepeat $size [lrepeat 100 0]]
    set sum 0
    for {set round 0} {$round < $rounds} {incr round} {
        for {set i 1} {$i <= $size} {incr i} {
            for {set j 1} {$j <= 100} {incr j} {
                lset table [expr {$i - 1}] [expr {$j - 1}] [expr {$i * $j + $round}]
            }
        }
        for {set j 1} {$j <= 100} {incr j} {
            for {set i 1} {$i <= $size} {incr i} {
                incr sum [lindex $table [expr {$i - 1}] [expr {$j - 1}]]
            }
        }
    }
    puts $sum
    puts [string range [join [lindex $table [expr {$size - 1}]] ,] 0 19]
}
main $size $rounds
