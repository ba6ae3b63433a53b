source tests/debugging/stop.gdb
echo == shown\n
print pixel
print coverage
print inside
print outside
print color
print point
print rect
print fixed
print between
print empty
print greys
print corner
print window
print matte
print stripes
print foreign
print locked
print mask
print *(TnImage*)unmade
set tngraphics-columns 4
print greys
set tngraphics-columns 0
print greys
set tngraphics-columns 64
python print(gdb.execute("backtrace 1", to_string=True).split(" at ")[0])
