# Short text functions: eight calls a pass.
set size 25000
proc main {size} {
    set text "Velm 日本語の文を読む Script"
    set sum 0
    set word ""
    for {set i 1} {$i <= $size} {incr i} {
        set word [string range $text 0 [expr {$i % 20}]]
        incr sum [string length $word]
        set word [string range $text end-8 end]
        incr sum [expr {[string first 文 $text] + 1}]
        set word [string range $text 5 7][string toupper $word]
        incr sum [regexp -all S $word]
        set word [string map {本 本本} $word]
        incr sum [string length $word]
    }
    puts $sum
    puts $word
}
main $size
