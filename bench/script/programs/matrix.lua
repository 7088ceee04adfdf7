local function make(n, seed)
  local rows = {}
  for i = 0, n - 1 do
    rows[i] = {}
    for j = 0, n - 1 do rows[i][j] = (i * j + seed) % 10 * 0.5 end
  end
  return rows
end
local function multiply(a, b, n)
  local product = {}
  for i = 0, n - 1 do
    local row, line = a[i], {}
    for j = 0, n - 1 do
      local sum = 0.0
      for k = 0, n - 1 do sum = sum + row[k] * b[k][j] end
      line[j] = sum
    end
    product[i] = line
  end
  return product
end
local a, b = make(300, 1), make(300, 7)
local c = multiply(a, b, 300)
print(math.floor(c[17][33] + c[299][299] * 2))
