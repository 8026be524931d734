# Draws the growth of costs; "directory" holds what fl_i18n_growth wrote, "picture" is the name of the image.
set terminal pngcairo size 1440,860 font "DejaVu Sans,11" background "white"
set output picture
set datafile separator "\t"
set grid lt 1 lw 0.6 lc rgb "#dddddd"
set border 3
set tics nomirror
set key top left Left reverse samplen 2
set yrange [0:*]
set style data linespoints
set linetype 1 lc rgb "#1f5fa8" lw 2 pt 7 ps 0.9
set linetype 2 lc rgb "#c8501e" lw 2 pt 5 ps 0.9
set linetype 3 lc rgb "#3c8c3c" lw 2 pt 9 ps 0.9
set linetype 4 lc rgb "#7a4fa3" lw 2 pt 11 ps 0.9

file(name) = directory."/".name.".tsv"

set multiplot layout 2,3 margins 0.06,0.985,0.09,0.94 spacing 0.07,0.15

set logscale x
set format x "10^{%L}"
set xlabel "messages in one catalog"
set title "A look-up, random keys"
set ylabel "ns"
plot file("messages") using 1:2 lt 1 notitle
set title "Loading"
set ylabel "ns for a message"
plot file("messages") using 1:3 lt 1 notitle
set title "Memory"
set ylabel "bytes for a message of 141 bytes"
plot file("messages") using 1:4 lt 1 notitle

set xlabel "catalogs that share 10,000 messages"
set title "A look-up, random keys in random catalogs"
set ylabel "ns"
plot file("catalogs") using 1:2 lt 1 notitle

unset logscale x
set format x "%g"
set xlabel "threads (two processors)"
set title "Look-ups from several threads"
set ylabel "millions a second"
plot file("threads") using 1:2 lt 1 title "all together", "" using 1:3 lt 2 title "each"

set xlabel "roots"
set title "Finding a file that is in the last place"
set ylabel "microseconds"
plot for [names = 1:4] file("chains") using 1:(column(names + 1)) lt names \
    title sprintf("chain of %d name%s", names, names > 1 ? "s" : "")
unset multiplot
