# Runs the program to where its variables have their values.
set confirm off
set pagination off
set width 0
set debuginfod enabled off
set print pretty off
break Stop
run
up
