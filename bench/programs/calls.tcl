# Recursive calls of a procedure: the nodes of a full binary tree.
set size 16
proc tree {depth} {
    if {$depth == 0} {return 1}
    return [expr {[tree [expr {$depth - 1}]] + [tree [expr {$depth - 1}]] + 1}]
}
puts [tree $size]
