// A program that does nothing: what starting any program with these libraries takes.
int main() { }
