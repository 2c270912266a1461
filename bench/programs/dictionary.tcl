# A dictionary that grows and is counted in.
set size 100000
proc main {size} {
    set table [dict create]
    for {set i 1} {$i <= $size} {incr i} {
        dict incr table k[expr {$i * 7 % 10007}] $i
    }
    puts [dict size $table]
    foreach key {k7 k10000} {
        puts [expr {[dict exists $table $key] ? [dict get $table $key] : ""}]
    }
}
main $size
