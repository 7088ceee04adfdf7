// What any C++ program costs before it does anything.
int main() {}
