// SPDX-License-Identifier: MIT
// A program that does nothing; its start is the least that any program with these libraries needs.
int main() { }
