# A dictionary with many keys, written and then read, several times over.
set size 100000
set rounds 1
proc main {size rounds} {
    set sum 0
    for {set round 0} {$round < $rounds} {incr round} {
        set table [dict create]
        for {set i 1} {$i <= $size} {incr i} {
            dict set table k$i $i
        }
        for {set i 1} {$i <= $size} {incr i} {
            incr sum [dict get $table k$i]
        }
    }
    puts $sum
}
main $size $rounds
