# Reading a CSV file in code page 932 and summing a column of it.
set size 100000
set path data.csv
proc main {size path} {
    set file [open $path]
    fconfigure $file -encoding cp932 -translation crlf
    set rows {}
    foreach line [split [read $file] \n] {
        lappend rows [split [string map {\" ""} $line] ,]
    }
    close $file
    set sum 0
    for {set i 1} {$i <= $size} {incr i} {
        incr sum [lindex $rows $i 3]
    }
    puts $sum
    puts [lindex $rows $size 2]
}
main $size $path
