! Calls the gas table exports as ordinary external procedures of a Fortran
! program, with Fortran's own text arguments and hidden lengths.
program fortran_caller
  implicit none
  integer(4), external :: iscomp, getidx, getstoredidx, dbread
  real(8), external :: getmmol, gettmin
  character(len=1), external :: getphase
  character(len=12) :: names(250)
  character(len=20) :: mix(3)
  character(len=256) :: dir
  integer(4) :: n, row
  real(8) :: a(7), b(7), t

  call fluidpath(dir, 'Ondrel')
  call check(dir(len_trim(dir):len_trim(dir)) == '/', 'fluidpath ends with a separator')
  call check(dbread() == 0, 'not loaded before the first lookup')
  call check(iscomp('N2') == 1, 'iscomp loads the table and finds N2')
  call check(iscomp('n2') == 0, 'names are case-sensitive')
  call check(dbread() == 1, 'loaded after iscomp')

  call getcompset(n, names)
  call check(n > 0 .and. n <= 250, 'getcompset gives the row count')
  row = getidx('N2      ')
  call check(row >= 1 .and. row <= n, 'getidx finds N2')
  call check(names(row) == 'N2', 'getcompset gives the names blank-padded')

  mix(1) = 'N2'
  mix(2) = 'SIO2(S)'
  mix(3) = 'CO2'
  call storeidx(3, mix)
  call check(getstoredidx('N2') == row, 'getstoredidx gives the stored row')
  call check(getstoredidx('AR') == -8888, 'a name not stored gives -8888')
  call check(getphase(mix(2)) == 'S', 'getphase of a solid')
  call check(getphase('N2') == 'G', 'getphase of a gas')
  call check(abs(getmmol('N2') - 0.0280134d0) < 1d-6, 'molar mass of N2 in kg/mol')
  call check(abs(gettmin('AR') + 8888.8d0) < 1d-9, 'a value of a name not stored is -8888.8')

  t = 1000d0
  call getcoef('N2', t, a)
  t = 1000.0001d0
  call getcoef('N2', t, b)
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
