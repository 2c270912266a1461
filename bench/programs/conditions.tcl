# Conditions on numbers and on text, with blocks inside blocks.
set size 300000
proc main {size} {
    set both 0
    set sum 0
    set middle 0
    for {set i 1} {$i <= $size} {incr i} {
        if {$i % 3 == 0} {
            if {$i % 5 == 0} {
                set word "両方"
            } else {
                set word "三"
            }
        } elseif {$i % 5 == 0} {
            set word "五"
        } else {
            set word "無"
        }
        if {$word eq "両方"} {incr both}
        if {$word ne "無"} {incr sum $i}
        if {$i > 10 && $i < 1000} {incr middle} else {incr middle -1}
    }
    puts $both
    puts $sum
    puts $middle
}
main $size
