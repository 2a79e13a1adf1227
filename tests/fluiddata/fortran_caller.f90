! Calls the gas table exports as ordinary external procedures of a Fortran
! program, with Fortran's own text arguments and hidden lengths.
program fortran_caller
  implicit none
  integer(4), external :: iscomp, getidx, getstoredidx
  real(8), external :: getmmol
  character(len=1), external :: getphase
  character(len=12) :: names(250)
  character(len=20) :: mix(2) = ['N2     ', 'SIO2(S)']
  character(len=256) :: dir
  integer(4) :: n, row
  real(8) :: a(7), b(7)

  call fluidpath(dir, 'Ondrel')
  if (dir(len_trim(dir):len_trim(dir)) /= '/') error stop 'fluidpath ends with a separator'
  if (iscomp('N2') /= 1) error stop 'iscomp loads the table and finds N2'
  call getcompset(n, names)
  row = getidx('N2      ')
  if (row < 1 .or. row > n) error stop 'getidx finds N2 among the rows'
  if (names(row) /= 'N2') error stop 'getcompset gives the names blank-padded'
  call storeidx(2, mix)
  if (getstoredidx('N2') /= row) error stop 'getstoredidx gives the stored row'
  if (getphase(mix(2)) /= 'S') error stop 'getphase of a solid'
  if (abs(getmmol('N2') - 0.02801348d0) > 1d-12) error stop 'molar mass of N2 in kg/mol'
  call getcoef('N2', 1000d0, a)
  call getcoef('N2', 1000.0001d0, b)
  if (maxval(abs(a - b)) <= 0d0) error stop 'the coefficient range changes above 1000 K'
  print '(a)', 'fortran caller: all checks passed'
end program
