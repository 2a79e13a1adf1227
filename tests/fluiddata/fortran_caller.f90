! Calls the gas table exports as ordinary external procedures of a Fortran
! program, with Fortran's own text arguments and hidden lengths; the table is
! loaded through host functions written in Fortran.
program fortran_caller
  implicit none
  integer(4), external :: iscomp, getidx, getstoredidx, host_getfluid
  external :: host_fluidpath
  real(8), external :: getmmol
  character(len=1), external :: getphase
  character(len=12) :: names(250)
  character(len=20) :: mix(2) = ['N2     ', 'SIO2(S)']
  character(len=256) :: dir
  integer(4) :: n, row, getfluid_calls
  common /host_calls/ getfluid_calls
  real(8) :: a(7), b(7)

  call fluidpath(dir, 'Ondrel')
  if (dir(len_trim(dir):len_trim(dir)) /= '/') error stop 'fluidpath ends with a separator'
  getfluid_calls = 0
  call ondrel_set_host_functions(host_fluidpath, host_getfluid)
  if (iscomp('N2') /= 1) error stop 'iscomp loads the table and finds N2'
  if (getfluid_calls /= 1) error stop 'the table comes through the host getfluid'
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

! The host's data directory: the library's own answer.
subroutine host_fluidpath(buffer, library)
  character(len=*) :: buffer, library
  if (library /= 'Ondrel') error stop 'fluidpath is asked for Ondrel'
  call fluidpath(buffer, library)
end subroutine

! The host's fluid database: the record is the text file of that name in the
! directory. The texts are declared with the widths the library passes.
integer(4) function host_getfluid(directory, name, lines, status)
  character(len=256) :: directory, name
  character(len=255) :: lines(255)
  integer(4) :: status, ios, getfluid_calls
  common /host_calls/ getfluid_calls
  getfluid_calls = getfluid_calls + 1
  host_getfluid = 0
  status = 0
  open(20, file=trim(directory)//trim(name), status='old', action='read', iostat=ios)
  if (ios /= 0) return
  do while (host_getfluid < 255)
    read(20, '(a)', iostat=ios) lines(host_getfluid + 1)
    if (ios /= 0) exit
    host_getfluid = host_getfluid + 1
  end do
  close(20)
  status = 1
end function
