! Calls the gas table exports as ordinary external procedures of a Fortran
! program, with Fortran's own text arguments and hidden lengths.
program fortran_caller
  implicit none
  integer(4), external :: iscomp, getidx, getstoredidx, dbread
  real(8), external :: getmmol
  character(len=1), external :: getphase
  character(len=12) :: names(250)
  character(len=20) :: mix(2) = ['N2     ', 'SIO2(S)']
  character(len=256) :: dir
  integer(4) :: n, row
  real(8) :: a(7), b(7)

  call fluidpath(dir, 'Ondrel')
  call check(dir(len_trim(dir):len_trim(dir)) == '/', 'fluidpath ends with a separator')
  call check(dbread() == 0, 'not loaded before the first lookup')
  call check(iscomp('N2') == 1, 'iscomp loads the table and finds N2')
  call check(iscomp('n2') == 0, 'names are case-sensitive')
  call check(dbread() == 1, 'loaded after iscomp')
  call getcompset(n, names)
  row = getidx('N2      ')
  call check(row >= 1 .and. row <= n .and. names(row) == 'N2', 'getcompset and getidx agree on N2')
  call storeidx(2, mix)
  call check(getstoredidx('N2') == row, 'getstoredidx gives the stored row')
  call check(getphase(mix(2)) == 'S', 'getphase of a solid')
  call check(abs(getmmol('N2') - 0.02801348d0) < 1d-12, 'molar mass of N2 in kg/mol')
  call getcoef('N2', 1000d0, a)
  call getcoef('N2', 1000.0001d0, b)
  call check(maxval(abs(a - b)) > 0d0, 'the coefficient range changes above 1000 K')
  print '(a)', 'fortran caller: all checks passed'

contains

  subroutine check(ok, what)
    logical, intent(in) :: ok
    character(len=*), intent(in) :: what
    if (.not. ok) then
      print '(2a)', 'FAILED: ', what
      error stop 1
    end if
  end subroutine

end program
