# Recursive calls as statements: the nodes of a full binary tree are counted.
set size 16
set nodes 0
proc count {depth} {
    global nodes
    incr nodes
    if {$depth == 0} {return}
    count [expr {$depth - 1}]
    count [expr {$depth - 1}]
}
count $size
puts $nodes
