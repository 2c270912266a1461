# Sorting the rows of a table by a column of texts.
set size 20000
proc main {size} {
    set table ""
    for {set i 1} {$i <= $size} {incr i} {
        set n [expr {$i * 7919 % 100003}]
        append table $n ,名前 $n ,さくら町 $i
        if {$i < $size} {append table \r\n}
    }
    set rows {}
    foreach line [split [string map {\r\n \n} $table] \n] {
        lappend rows [split $line ,]
    }
    set lines {}
    foreach row [lsort -ascii -index 1 $rows] {
        lappend lines [join $row ,]
    }
    set table [join $lines \r\n]
    puts [string map {\r ""} [string range $table 0 39]]
    puts [string map {\r ""} [string range $table end-39 end]]
}
main $size
