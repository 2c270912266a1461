# Reading a CSV file in code page 932, summing it by category, and writing it with a new column.
set size 100000
set path data.csv
proc main {size path} {
    set file [open $path]
    fconfigure $file -encoding cp932 -translation crlf
    set rows {}
    foreach line [split [string trimright [read $file] \n] \n] {
        lappend rows [split [string map {\" ""} $line] ,]
    }
    close $file
    set sums [dict create]
    lset rows 0 4 累計
    for {set i 1} {$i <= $size} {incr i} {
        set key [lindex $rows $i 1]
        dict incr sums $key [lindex $rows $i 3]
        lset rows $i 4 [dict get $sums $key]
    }
    set lines {}
    foreach row $rows {
        set items {}
        foreach item $row {
            lappend items [expr {[string is integer -strict $item] ? $item : "\"$item\""}]
        }
        lappend lines [join $items ,]
    }
    set file [open written.csv w]
    fconfigure $file -encoding cp932 -translation crlf
    puts -nonewline $file [join $lines \n]
    close $file
    puts [dict size $sums]
    puts [dict get $sums 食費]
}
main $size $path
