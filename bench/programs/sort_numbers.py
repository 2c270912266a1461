# Sorting a list of numbers, all of them different.
size = 100000


def main(size):
    table = ""
    for i in range(1, size + 1):
        table += str(i * 7919 % 100003)
        if i < size:
            table += ","
    table = ",".join(sorted(table.split(","), key=int))
    print(table[:40])
    print(table[-40:])


main(size)
