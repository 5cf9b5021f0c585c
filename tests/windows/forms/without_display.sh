# Where nobody could see a window there is none, and the caller hears of it.
unset PROTCSV_KEEP_DISPLAY
show alone
check "no display: the form is refused" tells "refused form"
check "no display: the program goes on" ends
show save 'C:\Protokoll.csv'
check "no display: the Save dialog is refused" tells "refused dialog"
check "no display: no file name" tells "no file"
show progress
check "no display: a run needs no progress window" tells half
stop_wine
