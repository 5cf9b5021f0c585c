# Every way out.

show alone
check "without an owner: the form opens" opens $title
cp "$seen" "$PROT_GROUP_FOLDER/form.txt"
check "without an owner: in the middle of the screen" in_the_middle "0 0 1280 1024"
keys alt+F4
check "the close box is Cancel" told_times cancel 1
check "closed" ends

show owned
check "the form opens" opens $title
keys ctrl+e
check "an error of a function goes to the caller" tells "error: key_down fails"
check "the owner is switched on" tells "owner enabled"
check "the form is gone" ends

show owned
check "the form opens once more" opens $title
click 1
check "OK by mouse" tells "ok: 10000 Größer & Söhne GmbH 0 / 2024"
check "OK closes" ends
