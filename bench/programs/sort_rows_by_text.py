# Sorting the rows of a table by a column of texts.
size = 20000


def main(size):
    table = ""
    for i in range(1, size + 1):
        n = i * 7919 % 100003
        table += str(n) + ",名前" + str(n) + ",さくら町" + str(i)
        if i < size:
            table += "\r\n"
    rows = [line.split(",") for line in table.split("\r\n")]
    rows.sort(key=lambda row: row[1])
    table = "\r\n".join(",".join(row) for row in rows)
    print(table[:40].replace("\r", ""))
    print(table[-40:].replace("\r", ""))


main(size)
