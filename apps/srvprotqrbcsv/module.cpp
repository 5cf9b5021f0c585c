namespace prot {}
